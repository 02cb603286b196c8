// The sources as the checks read them.
import { execFileSync } from 'node:child_process';
import { existsSync, readFileSync } from 'node:fs';
import { resolve } from 'node:path';

process.chdir(resolve(import.meta.dirname ?? new URL('.', import.meta.url).pathname, '../..'));

// The files of these patterns that git knows, or would take.
export const listed = (...patterns) =>
  execFileSync('git', ['ls-files', '--cached', '--others', '--exclude-standard', ...patterns], { encoding: 'utf8' })
    .split('\n').filter((file) => file !== '' && existsSync(file));

export const sources = listed('*.h', '*.cpp');
export const textOf = (file) => readFileSync(file, 'utf8');
export const lineAt = (text, at) => text.slice(0, at).split('\n').length;

// Comments, raw and plain texts, characters (but not 300'000), and the preprocessor's lines.
const noCode = [
  /\/\/[^\n]*|\/\*.*?\*\//, /\b(?:u8|[uUL])?R"([^(\s]*)\(.*?\)\1"/, /"(?:[^"\\\n]|\\.)*"/,
  /(?:(?<!\w)|(?<=\b(?:u8|[uUL])))'(?:[^'\\\n]|\\.)+'/, /^[ \t]*#(?:\\\n|[^\n])*/,
];
const pieces = new RegExp(noCode.map((part) => part.source).join('|'), 'gms');
const blank = (text) => text.replace(/[^\n]/g, ' ');
const isText = (found) => /^\w*"/.test(found);

// The text of a file in which all that is no code is blank, and of its texts the quotes are left. Every place stays.
export const codeOf = (file) =>
  textOf(file).replace(pieces, (found) => (isText(found) ? `"${blank(found.slice(1, -1))}"` : blank(found)));
