// Fails on a text of the program that is not in every file of translations/, on one there that the program does not have, on
// one that is not translated, and on a placeholder that a translation lost or brought along.
import './sources.mjs';
import { execFileSync } from 'node:child_process';
import { copyFileSync, mkdtempSync, readFileSync, readdirSync, rmSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';

export const problems = [];
const files = readdirSync('translations').filter((name) => name.endsWith('.ts'));
const copies = mkdtempSync(join(tmpdir(), 'texts-'));
let count = 0;
try {
  for (const file of files) copyFileSync(join('translations', file), join(copies, file));
  execFileSync('tools/translate.sh', [copies]);
  for (const file of files) {
    const text = readFileSync(join('translations', file), 'utf8');
    if (text !== readFileSync(join(copies, file), 'utf8'))
      problems.push(`translations/${file} does not have the texts of the sources: run tools/translate.sh, and translate what is new`);
    for (const [, source, attributes, translation] of
      text.matchAll(/<source>([\s\S]*?)<\/source>[\s\S]*?<translation([^>]*?)(?:\/>|>([\s\S]*?)<\/translation>)/g)) {
      ++count;
      const places = (words) => [...(words ?? '').matchAll(/%(?:L?\d+|n)/g)].map(String).sort().join(' ');
      if (/type="/.test(attributes) || !translation) problems.push(`translations/${file}: "${source}" is not translated`);
      else if (places(source) !== places(translation))
        problems.push(`translations/${file}: "${source}" and its translation have other placeholders`);
    }
  }
} finally {
  rmSync(copies, { recursive: true });
}
export const told = `${count} texts in ${files.length} translation${files.length === 1 ? '' : 's'}`;
