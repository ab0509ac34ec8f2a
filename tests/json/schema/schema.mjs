// Tests the schema of domain files: it is a valid schema, valid files pass it, and each of the
// mistakes below fails with its keyword at its place.
//
//   node schema.mjs SCHEMA GOOD_FILE...

import { readFileSync } from "node:fs";

import Ajv from "ajv/dist/2020.js";
import json5 from "json5";

// Returns a file with one property of one field, with further members in the four objects.
const file = ({ top = "", domen = "", property = "", field = "" }) => `{
  Domen: {asFuncsNames: ['P'], ${domen}},
  Properties: {P: {asFuncsNames: ['F'], ${property}}},
  ArrayValueFields: {F: {${field}}},
  ${top}
}`;

const goodTexts = [
  file({}),
  "{Domen: {asFuncsNames: []}}",
  file({ top: "$schema: 'domen.schema.json'", domen: "sName: 'Зоны'" }),
  file({ property: "asObjectTypes: [], sId: 'any', sName: '', iUniq: 1, iSortId: -0x10" }),
  file({ property: "iUniq: 5, iSortId: 10.0, asObjectTypes: ['Room', 'Room']" }),
  file({ field: "sName: 'Title', rDefault: .5" }),
  file({ field: "sType: 'i', iDefault: +0xFF" }),
  file({ field: "sType: 'ai', iDefault: -2147483648" }),
  file({ field: "sType: 'r', rDefault: 1e3" }),
  file({ field: "sType: 'ar', rDefault: 5" }),
  file({ field: "sType: 's', sDefault: ''" }),
  file({ field: "sType: 'as', sDefault: 'two words'" }),
  // An export with one field name in properties of several types
  file({ field: "sName: 'F', sType: 'i', rDefault: 1.0, iDefault: 1" }),
  file({ field: "sName: 'F', sType: 'ar', sDefault: '', iDefault: 1, rDefault: 1.0" }),
  file({ field: "sName: 'F', sType: 's', sDefault: '', iDefault: 1" }),
];

// Mistakes in one of the objects, each with the keyword and the place.
const within = (object, place, mistakes) =>
  mistakes.map(([name, text, keyword, key]) => [
    name,
    file({ [object]: text }),
    keyword,
    place + key,
  ]);

const mistakes = [
  ["a list", "[]", "type", ""],
  ["nothing at all", "{}", "required", ""],
  ["no list of properties", "{Domen: {sName: 'Zones'}}", "required", "/Domen"],

  ...within("top", "", [
    ["an unknown section", "Fields: {}", "additionalProperties", ""],
    ["a section in small letters", "properties: {}", "additionalProperties", ""],
    ["a section as a list", "Properties: []", "type", "/Properties"],
    ["a property as a text", "Properties: {P: 'F'}", "type", "/Properties/P"],
    ["an empty id", "Properties: {'': {}}", "minLength", "/Properties"],
    ["an empty field name", "ArrayValueFields: {'': {}}", "minLength", "/ArrayValueFields"],
    ["a default as a field", "ArrayValueFields: {F: 5}", "type", "/ArrayValueFields/F"],
    ["a number for the schema", "$schema: 5", "type", "/$schema"],
  ]),

  ...within("domen", "/Domen", [
    ["a number for a name", "sName: 5", "type", "/sName"],
    ["a misspelt key of the domain", "asFuncNames: []", "additionalProperties", ""],
    ["an id of the domain", "sId: 'zones'", "additionalProperties", ""],
    ["properties in the domain", "Properties: {}", "additionalProperties", ""],
    ["properties as a text", "asFuncsNames: 'P'", "type", "/asFuncsNames"],
    ["a number for a property", "asFuncsNames: [5]", "type", "/asFuncsNames/0"],
    ["a property without a name", "asFuncsNames: ['']", "minLength", "/asFuncsNames/0"],
    ["a property listed twice", "asFuncsNames: ['P', 'P']", "uniqueItems", "/asFuncsNames"],
  ]),

  ...within("property", "/Properties/P", [
    ["object types as a text", "asObjectTypes: 'Room'", "type", "/asObjectTypes"],
    ["a number for an object type", "asObjectTypes: [1]", "type", "/asObjectTypes/0"],
    ["an empty object type", "asObjectTypes: ['']", "minLength", "/asObjectTypes/0"],
    ["a number for an id", "sId: 7", "type", "/sId"],
    ["a number for a title", "sName: 7", "type", "/sName"],
    ["unique as a text", "iUniq: '1'", "type", "/iUniq"],
    ["unique as a truth value", "iUniq: true", "type", "/iUniq"],
    ["a broken sort index", "iSortId: 1.5", "type", "/iSortId"],
    ["a sort index beyond 32 bits", "iSortId: 3e9", "maximum", "/iSortId"],
    ["a misspelt key of a property", "iSortID: 1", "additionalProperties", ""],
    ["a key of a field in a property", "sType: 'i'", "additionalProperties", ""],
    ["fields in a property", "ArrayValueFields: {}", "additionalProperties", ""],
    ["a number for a field", "asFuncsNames: ['F', 5]", "type", "/asFuncsNames/1"],
    ["a field listed twice", "asFuncsNames: ['F', 'F']", "uniqueItems", "/asFuncsNames"],
  ]),

  ...within("field", "/ArrayValueFields/F", [
    ["an unknown type", "sType: 'x'", "enum", "/sType"],
    ["a type in capitals", "sType: 'AI'", "enum", "/sType"],
    ["a keyword as a type", "sType: 'int'", "enum", "/sType"],
    ["an integer default as a text", "sType: 'i', iDefault: '5'", "type", "/iDefault"],
    ["a broken integer default", "sType: 'ai', iDefault: 2.5", "type", "/iDefault"],
    ["an integer default below 32 bits", "sType: 'i', iDefault: -3e9", "minimum", "/iDefault"],
    ["a real default as a text", "rDefault: '0,5'", "type", "/rDefault"],
    ["an infinite default", "rDefault: Infinity", "type", "/rDefault"],
    ["a text default as a number", "sType: 's', sDefault: 5", "type", "/sDefault"],
    ["a text default as a list", "sType: 'as', sDefault: ['a']", "type", "/sDefault"],
    ["an integer default without a type", "iDefault: 1", "dependentRequired", ""],
    ["a text default without a type", "sDefault: ''", "dependentRequired", ""],
    ["a real default of an integer", "sType: 'i', rDefault: 1.0", "dependentRequired", ""],
    ["a text default of an integer list", "sType: 'ai', sDefault: ''", "dependentRequired", ""],
    ["an integer default of a real list", "sType: 'ar', iDefault: 1", "dependentRequired", ""],
    ["an integer default of a text", "sType: 's', iDefault: 1", "dependentRequired", ""],
    ["a real default of a text list", "sType: 'as', rDefault: 1.0", "dependentRequired", ""],
    ["5.0 besides 1", "sType: 'i', iDefault: 1, rDefault: 5.0", "const", "/rDefault"],
    ["'x' besides 1", "sType: 'i', iDefault: 1, sDefault: 'x'", "const", "/sDefault"],
    ["5 besides 1.0", "sType: 'r', rDefault: 1.0, iDefault: 5", "const", "/iDefault"],
    ["'x' besides 1.0", "sType: 'r', rDefault: 1.0, sDefault: 'x'", "const", "/sDefault"],
    ["5 besides 'x'", "sType: 's', sDefault: 'x', iDefault: 5", "const", "/iDefault"],
    ["5.0 besides 'x'", "sType: 's', sDefault: 'x', rDefault: 5.0", "const", "/rDefault"],
    ["a number for the title of a field", "sName: 5", "type", "/sName"],
    ["a misspelt key of a field", "sDefualt: 'x'", "additionalProperties", ""],
    ["a title under another key", "sTitle: 'x'", "additionalProperties", ""],
  ]),
];

const failures = [];

// Returns the first error that the schema finds in a text, or null.
const firstError = (validate, text) => (validate(json5.parse(text)) ? null : validate.errors[0]);

function checkGood(validate, name, text) {
  const error = firstError(validate, text);
  if (error) failures.push(`${name}: ${error.instancePath} ${error.message}`);
}

function checkMistake(validate, [name, text, keyword, place]) {
  const error = firstError(validate, text);
  const found = error ? `fails by ${error.keyword} at "${error.instancePath}"` : "passes";
  const expected = `fails by ${keyword} at "${place}"`;
  if (found !== expected) failures.push(`${name}: ${found}, where it ${expected}`);
}

function check(schemaFile, goodFiles) {
  // Compiling checks the schema against the meta-schema; strict mode checks its consistency too.
  const validate = new Ajv({ strict: true }).compile(JSON.parse(readFileSync(schemaFile, "utf8")));
  for (const name of goodFiles) {
    attempt(name, () => checkGood(validate, name, readFileSync(name, "utf8")));
  }
  for (const text of goodTexts) attempt(text, () => checkGood(validate, text, text));
  for (const mistake of mistakes) attempt(mistake[0], () => checkMistake(validate, mistake));
}

// Runs the action and counts an exception as a failure of this name.
function attempt(name, action) {
  try {
    action();
  } catch (error) {
    failures.push(`${name}: ${error.message}`);
  }
}

const [schemaFile, ...goodFiles] = process.argv.slice(2);
if (goodFiles.length === 0) {
  console.error("usage: node schema.mjs SCHEMA GOOD_FILE...");
  process.exit(1);
}
attempt(schemaFile, () => check(schemaFile, goodFiles));
for (const failure of failures) console.error(failure);
const good = `good files ${goodFiles.length}, good texts ${goodTexts.length}`;
console.log(`schema: ${good}, mistakes ${mistakes.length}, failures ${failures.length}`);
process.exit(failures.length === 0 ? 0 : 1);
