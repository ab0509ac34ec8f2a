// Compares the JSON5 reader with the reference one: both must refuse the same documents and make
// the same trees of the others.
//
//   node referee.mjs PATH_OF_JSON5_TREE [FILE...]
//
// The documents are generated, each from its own seed: half of them are valid and use all forms of
// the grammar, and half are valid ones with a few characters changed. The files are read in
// addition. The exit status is 1 if the readers disagree.

import { spawnSync } from 'node:child_process';
import { readFileSync } from 'node:fs';

import JSON5 from 'json5';

const documentCount = 5000;
const maxDepth = 1000;

// The reference warns of raw U+2028 and U+2029 in strings, which are valid.
console.warn = () => {};

// Random choices

class Dice {
  constructor(seed) {
    this.state = seed;
    for (let i = 0; i < 4; ++i) this.next();
  }

  next() {
    this.state = (Math.imul(this.state, 1664525) + 1013904223) >>> 0;
    return this.state / 2 ** 32;
  }

  below(bound) {
    return Math.floor(this.next() * bound);
  }

  oneIn(count) {
    return this.below(count) === 0;
  }

  pick(list) {
    return list[this.below(list.length)];
  }

  // Returns `least` to `most` of them, joined.
  repeat(least, most, make) {
    let text = '';
    for (let i = least + this.below(most - least + 1); i > 0; --i) text += make();
    return text;
  }
}

// Characters

const spaces = [...' \t\v\f\n\r\u00A0\uFEFF\u2028\u2029\u1680\u2000\u2009\u200A\u202F\u205F\u3000'];
const lineEnds = ['\n', '\r', '\r\n', '\u2028', '\u2029'];
const letters = [...'azAZ$_éßЖёλש漢한\u0643\u0915\u01C5\u02B0\u2163\u3007\u{10400}\u{20000}'];
const joiners = [...'09\u0301\u093E\u0660\u203F\u200C\u200D\u{1D7CE}'];
const words = ['true', 'null', 'Infinity', 'NaN', 'if', '__proto__', 'constructor', 'e1'];
const plain = [...'aZ Ж漢\u0085\u200B\uFEFF\u2028\u2029\0\t\u007F/*,:]}u0x\u{1F600}\u{10FFFF}\uFFFF'];
const hostile = [
  ...'"\'\\[]{},:/*ux09.eE+-_$nNIta# \0\n\r\t\v\u2028\u2029\u00A0\uFEFF\u0085\u200B\u200C\u200D',
  ...'\u0301\u0660\u203F\u00B7\u2118\u2116\u180Eé\u0416漢\u0643\uFFFF\u{10400}\u{1D7CE}\u{1F600}',
];

function anyCharacter(dice) {
  const code = dice.below(dice.oneIn(2) ? 0x3000 : 0x110000);
  return code >= 0xd800 && code <= 0xdfff ? 'a' : String.fromCodePoint(code);
}

function hex(dice, number, digits) {
  const text = number.toString(16).padStart(digits, '0');
  return dice.oneIn(2) ? text : text.toUpperCase();
}

function unicodeEscape(dice, character) {
  return '\\u' + hex(dice, character.charCodeAt(0), 4);
}

// Valid documents

function comment(dice) {
  const inside = dice.repeat(0, 4, () => dice.pick(plain));
  if (dice.oneIn(2)) return '/*' + inside.replaceAll('/', '') + dice.pick(['', '*', '\n']) + '*/';
  return '//' + inside.replace(/[\u2028\u2029]/g, '') + dice.pick(lineEnds);
}

function space(dice) {
  if (!dice.oneIn(3)) return '';
  return dice.repeat(1, 3, () => (dice.oneIn(4) ? comment(dice) : dice.pick(spaces)));
}

function digits(dice, least, most) {
  return dice.repeat(least, most, () => String(dice.below(10)));
}

function integer(dice) {
  if (dice.oneIn(3)) return '0';
  return String(1 + dice.below(9)) + digits(dice, 0, dice.pick([0, 3, 20, 400]));
}

function decimal(dice) {
  const fraction = digits(dice, 1, dice.pick([1, 5, 25])).padStart(dice.pick([1, 1, 1, 350]), '0');
  const mantissa = dice.pick([integer(dice), integer(dice) + '.', '.' + fraction,
    integer(dice) + '.' + fraction]);
  if (dice.oneIn(2)) return mantissa;
  return mantissa + dice.pick(['e', 'E']) + dice.pick(['', '+', '-']) +
    digits(dice, 1, dice.pick([1, 2, 3, 3, 20]));
}

function hexadecimal(dice) {
  const figures = dice.repeat(1, dice.pick([1, 8, 20, 300]), () => hex(dice, dice.below(16), 1));
  return dice.pick(['0x', '0X']) + figures;
}

function number(dice) {
  const sign = dice.pick(['', '', '+', '-']);
  if (dice.oneIn(8)) return sign + dice.pick(['Infinity', 'NaN']);
  return sign + (dice.oneIn(3) ? hexadecimal(dice) : decimal(dice));
}

function escape(dice) {
  switch (dice.below(7)) {
    case 0:
      return '\\' + dice.pick([..."'\"\\bfnrtv"]);
    case 1:
      return '\\x' + hex(dice, dice.below(256), 2);
    case 2:
      return '\\u' + hex(dice, dice.below(0x10000), 4);
    case 3:  // a surrogate pair, or what looks like one
      return '\\u' + hex(dice, 0xd7f0 + dice.below(0x420), 4) +
        (dice.oneIn(4) ? '\\\n' : '') + '\\u' + hex(dice, 0xdbf0 + dice.below(0x420), 4);
    case 4:
      return dice.pick(['\\0', '\\0a', '\\0\\0']);
    case 5:
      return '\\' + dice.pick(lineEnds);
    default:
      return '\\' + dice.pick([...'acCNUXя/ \0\u0085\u0660\u{1F600}']);
  }
}

function string(dice) {
  const mark = dice.pick(['"', "'"]);
  const other = mark === '"' ? "'" : '"';
  const inside = dice.repeat(0, 6, () => {
    if (dice.oneIn(3)) return escape(dice);
    if (dice.oneIn(8)) return other;
    return dice.pick(plain);
  });
  // No digit may follow an escaped zero.
  return mark + inside.replace(/\\0(?=[0-9])/g, '\\0-') + mark;
}

function identifier(dice) {
  if (dice.oneIn(6)) return dice.pick(words);
  const spell = (character) =>
    character.length === 1 && dice.oneIn(4) ? unicodeEscape(dice, character) : character;
  return spell(dice.pick(letters)) +
    dice.repeat(0, 4, () => spell(dice.pick(dice.oneIn(2) ? letters : joiners)));
}

function list(dice, opening, closing, element) {
  const elements = [];
  for (let i = dice.below(5); i > 0; --i) elements.push(space(dice) + element() + space(dice));
  const comma = elements.length !== 0 && dice.oneIn(3) ? ',' : '';
  return opening + elements.join(',') + comma + space(dice) + closing;
}

function value(dice, depth) {
  switch (dice.below(depth < 5 ? 7 : 5)) {
    case 0:
      return dice.pick(['null', 'true', 'false']);
    case 1:
    case 2:
      return number(dice);
    case 3:
    case 4:
      return string(dice);
    case 5:
      return list(dice, '[', ']', () => value(dice, depth + 1));
    default: {
      const key = () => (dice.oneIn(2) ? identifier(dice) : string(dice));
      const member = () => key() + space(dice) + ':' + space(dice) + value(dice, depth + 1);
      return list(dice, '{', '}', member);
    }
  }
}

function validDocument(dice) {
  return space(dice) + value(dice, dice.pick([0, 0, 0, 4])) + space(dice);
}

// Malformed documents

function spoil(dice, text) {
  const characters = [...text];
  const place = () => dice.below(characters.length);
  for (let i = 1 + dice.below(3); i > 0 && characters.length > 0; --i) {
    const at = place();
    switch (dice.below(5)) {
      case 0:
        characters.splice(at, 1);
        break;
      case 1: {
        const other = dice.oneIn(2) ? Math.min(at + 1, characters.length - 1) : place();
        [characters[at], characters[other]] = [characters[other], characters[at]];
        break;
      }
      case 2:
        characters.splice(at, 0, ...characters.slice(at, at + 1 + dice.below(3)));
        break;
      default:
        characters.splice(at, dice.below(2),
          dice.oneIn(6) ? anyCharacter(dice) : dice.pick(hostile));
    }
  }
  return characters.join('');
}

function makeDocument(seed) {
  const dice = new Dice(seed);
  const text = validDocument(dice);
  const spoilt = seed % 2 !== 0;
  const bytes = Buffer.from(spoilt ? spoil(dice, text) : text);
  return { name: `seed ${seed}`, bytes, mustBeValid: !spoilt };
}

// Trees, in the format of json5_tree

function units(text) {
  let digits = '';
  for (let i = 0; i < text.length; ++i) digits += text.charCodeAt(i).toString(16).padStart(4, '0');
  return digits;
}

function bits(number) {
  const view = new DataView(new ArrayBuffer(8));
  view.setFloat64(0, number);
  const text = view.getBigUint64(0).toString(16).padStart(16, '0');
  return '#' + (Number.isNaN(number) ? '7ff8000000000000' : text);
}

function members(object, depth) {
  return Object.entries(object)
    .map(([key, member]) => [units(key), member])
    .sort(([left], [right]) => (left < right ? -1 : 1))
    .map(([key, member]) => key + ':' + tree(member, depth) + ',')
    .join('');
}

// The reference doesn't bound the depth.
class TooDeep extends SyntaxError {}

function tree(value, depth = 0) {
  if (typeof value === 'number') return bits(value);
  if (typeof value === 'string') return '"' + units(value) + '"';
  if (value === null || typeof value === 'boolean') return String(value);
  if (depth === maxDepth) throw new TooDeep();
  if (!Array.isArray(value)) return '{' + members(value, depth + 1) + '}';
  return '[' + value.map((element) => tree(element, depth + 1) + ',').join('') + ']';
}

const decoder = new TextDecoder('utf-8', { fatal: true, ignoreBOM: true });

function referenceOutcome(bytes) {
  try {
    return tree(JSON5.parse(decoder.decode(bytes)));
  } catch (error) {
    if (error instanceof SyntaxError || error.code === 'ERR_ENCODING_INVALID_ENCODED_DATA') {
      return 'error';
    }
    throw error;
  }
}

// The comparison

function treeOutcomes(program, documents) {
  const input = documents.flatMap(({ bytes }) => [Buffer.from(`${bytes.length}\n`), bytes]);
  const run = spawnSync(program, { input: Buffer.concat(input), maxBuffer: 2 ** 30 });
  if (run.error) throw run.error;
  if (run.status !== 0) {
    throw new Error(`${program} failed: ${run.signal ?? run.status}\n${run.stderr}`);
  }
  const lines = run.stdout.toString().split('\n');
  if (lines.length !== documents.length + 1) throw new Error(`${program} printed too few lines`);
  return lines;
}

const [program, ...files] = process.argv.slice(2);
if (program === undefined) {
  console.error('usage: node referee.mjs PATH_OF_JSON5_TREE [FILE...]');
  process.exit(2);
}

const documents = [];
for (let seed = 1; seed <= documentCount; ++seed) documents.push(makeDocument(seed));
for (const file of files) {
  documents.push({ name: file, bytes: readFileSync(file), mustBeValid: false });
}

const outcomes = treeOutcomes(program, documents);
let valid = 0;
let disagreements = 0;
documents.forEach(({ name, bytes, mustBeValid }, index) => {
  const expected = referenceOutcome(bytes);
  if (expected !== 'error') ++valid;
  if (outcomes[index] === expected && !(mustBeValid && expected === 'error')) return;
  ++disagreements;
  console.log(`${name}: ${JSON.stringify(bytes.toString())}`);
  console.log(`  the reference: ${expected}`);
  console.log(`  json5_tree:    ${outcomes[index]}`);
});
console.log(`${documents.length} documents (${files.length} files), ${valid} of them valid: ` +
  (disagreements === 0 ? 'all agree' : `${disagreements} disagree`));
process.exit(disagreements === 0 ? 0 : 1);
