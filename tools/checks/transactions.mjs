// Fails where a file has a statement that writes and names no transaction: what belongs together is written whole or not
// at all. Files that only make statements for a transaction of their callers are below.
//
// What it sees: texts that begin with a writing word in capitals, and the words Transaction and BeginTrans anywhere in the
// code of the same file. It does not see which procedure a transaction spans, nor what a plug-in of others writes.
import { codeOf, lineAt, sources, textOf } from './sources.mjs';

const writing = /"\s*(?:INSERT|UPDATE|DELETE|REPLACE|CREATE|DROP|ALTER)\b/g;
const places = {};
export const problems = [];
const looked = sources.filter((file) => /^(?:src|publishing|plugins)\//.test(file));

for (const file of looked) {
  const code = codeOf(file);
  // A quote in a comment is blank in the code.
  const found = [...textOf(file).matchAll(writing)].find(({ index }) => code[index] === '"');
  const needs = found !== undefined && !/\b(?:Transaction|BeginTrans)\b/.test(code);
  if (needs && places[file] === undefined)
    problems.push(`${file}:${lineAt(code, found.index)}: ${found[0].slice(1)} and no transaction in sight`);
  if (!needs && places[file] !== undefined) problems.push(`${file} is on the list and has no need of it`);
}
for (const file of Object.keys(places)) if (!looked.includes(file)) problems.push(`${file} is on the list and is not there`);

export const told = `${looked.length} files write in transactions`;
