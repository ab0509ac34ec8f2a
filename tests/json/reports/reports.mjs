// Holds the reports of `classify check` to their schemas: docs/check.schema.json, and the published
// schema of SARIF 2.1.0. Each report must pass, and each way to spoil one must fail, so that a
// schema that takes anything is noticed.
//
//   node reports.mjs CHECK_SCHEMA FOLDER
//
// The folder has the reports: *.json, *.all.json (with --all) and *.sarif.

import { readFileSync, readdirSync } from "node:fs";
import { createRequire } from "node:module";
import { dirname, join } from "node:path";

import Ajv from "ajv";
import Ajv2020 from "ajv/dist/2020.js";
import addFormats from "ajv-formats";

const read = (file) => JSON.parse(readFileSync(file, "utf8"));

const packages = dirname(createRequire(import.meta.url).resolve("schemastore/package.json"));
const sarifSchema = join(packages, "schemas/json/sarif-2.1.0.json");

// The published schema isn't strict, and has a pattern that is none with the flag for Unicode.
const sarifOptions = { strict: false, unicodeRegExp: false };
const validateSarif = addFormats(new Ajv(sarifOptions)).compile(read(sarifSchema));

// Changes to a report, of which at least one must be possible in some report.
const checkSpoilers = {
  "no findings": (report) => delete report.findings,
  "an unknown key": (report) => (report.errors = []),
  "a summary without hints": (report) => delete report.summary.hints,
  "an unknown severity": (report) => (report.findings[0].severity = "note"),
  "a number as a text": (report) => (report.findings[0].number = "101"),
  "a line 0": (report) => (report.findings[0].line = 0),
  "no end": (report) => delete report.findings[0].endColumn,
  "no related places": (report) => delete report.findings[0].related,
  "an unknown fate": (report) => (report.statements[0].fate = "gone"),
  "a statement without section": (report) => delete report.statements[0].section,
};
const sarifSpoilers = {
  "another version": (report) => (report.version = "2.0.0"),
  "no tool": (report) => delete report.runs[0].tool,
  "an unknown level": (report) => (report.runs[0].results[0].level = "hint"),
  "a result without message": (report) => delete report.runs[0].results[0].message,
  "an unknown column kind": (report) => (report.runs[0].columnKind = "bytes"),
  "a column 0": (report) =>
    (report.runs[0].results[0].locations[0].physicalLocation.region.startColumn = 0),
  "a blank in a URI": (report) =>
    (report.runs[0].results[0].locations[0].physicalLocation.artifactLocation.uri = "a b"),
};

const failures = [];

function checkReports(names, validate, spoilers, further) {
  if (names.length === 0) failures.push("no reports of one kind");
  const spoilt = new Set();
  for (const name of names) {
    if (!validate(read(name))) {
      const error = validate.errors[0];
      failures.push(`${name}: ${error.instancePath} ${error.message}`);
    }
    further(name, read(name));
    for (const [what, spoil] of Object.entries(spoilers)) {
      const report = read(name);
      try {
        spoil(report);
      } catch {
        continue; // the report lacks the place
      }
      spoilt.add(what);
      if (validate(report)) failures.push(`${name}: passes with ${what}`);
    }
  }
  for (const what of Object.keys(spoilers)) {
    if (!spoilt.has(what)) failures.push(`no report could be spoilt by ${what}`);
  }
}

// What the schema can't say: with --all there are statements, and the summary counts the findings.
function checkCounts(name, report) {
  if (("statements" in report) !== name.endsWith(".all.json")) {
    failures.push(`${name}: statements without --all, or none with it`);
  }
  for (const severity of ["error", "warning", "hint"]) {
    const count = report.findings.filter((finding) => finding.severity === severity).length;
    if (report.summary[`${severity}s`] !== count) failures.push(`${name}: miscounts ${severity}s`);
  }
}

// What it can't say either: each result has the rule that its index says, and its level.
function checkRules(name, { runs: [run] }) {
  for (const result of run.results) {
    const rule = run.tool.driver.rules[result.ruleIndex];
    if (rule?.id !== result.ruleId || rule.defaultConfiguration.level !== result.level) {
      failures.push(`${name}: ${result.ruleId} is not the rule ${result.ruleIndex}`);
    }
  }
}

const [checkSchema, folder] = process.argv.slice(2);
if (!folder) {
  console.error("usage: node reports.mjs CHECK_SCHEMA FOLDER");
  process.exit(1);
}
const validateCheck = new Ajv2020({ strict: true }).compile(read(checkSchema));
const reports = readdirSync(folder).map((name) => join(folder, name));
const ofKind = (end) => reports.filter((name) => name.endsWith(end));
checkReports(ofKind(".json"), validateCheck, checkSpoilers, checkCounts);
checkReports(ofKind(".sarif"), validateSarif, sarifSpoilers, checkRules);
for (const failure of failures) console.error(failure);
console.log(`reports: ${reports.length}, failures ${failures.length}`);
process.exit(failures.length === 0 ? 0 : 1);
