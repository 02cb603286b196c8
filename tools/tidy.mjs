// clang-tidy over every source file of the build tree, as many at a time as there are processors. A file whose text, headers and
// rules are those of its last clean run is passed over. usage: node tools/tidy.mjs [BUILD_TREE]
import { execFileSync, spawn } from 'node:child_process';
import { createHash } from 'node:crypto';
import { existsSync, mkdirSync, readFileSync, writeFileSync } from 'node:fs';
import { cpus } from 'node:os';
import { relative, resolve } from 'node:path';

const root = resolve(import.meta.dirname ?? new URL('.', import.meta.url).pathname, '..');
process.chdir(root);
const tree = process.argv[2] ?? 'build/release';
const place = resolve('build/tidy');
mkdirSync(`${place}/clean`, { recursive: true });
const hash = (...parts) => parts.reduce((sum, part) => sum.update(part), createHash('sha1')).digest('hex');

const listed = execFileSync('git', ['ls-files', '--cached', '--others', '--exclude-standard', '*.cpp', '*.h', '*.ui', '.clang-tidy']).toString().trim().split('\n');
const headers = hash(...listed.filter((file) => !file.endsWith('.cpp')).sort().map((file) => readFileSync(file)));
const sources = new Set(listed.filter((file) => file.endsWith('.cpp')));

// clang cannot read the compiler's own precompiled headers: it gets its own, made with the same flags, once for each header.
const precompiled = new Map();
function precompile(header, flags) {
  const key = hash(header, flags.join(' '), headers);
  const target = `${place}/${key}.pch`;
  if (!precompiled.has(key) && !existsSync(target))
    execFileSync('clang++-14', [...flags, '-w', '-x', 'c++-header', header, '-o', target], { stdio: 'inherit' });
  precompiled.set(key, target);
  return target;
}

const commands = [];
for (const entry of JSON.parse(readFileSync(`${tree}/compile_commands.json`))) {
  const file = relative(root, entry.file);
  if (!sources.has(file)) continue;
  const words = entry.command.match(/(?:[^\s"\\]|\\.|"(?:[^"\\]|\\.)*")+/g).map((word) => word.replace(/\\(["\\])/g, '$1'));
  const compiler = words.findIndex((word) => /(^|\/)c\+\+$/.test(word));
  const flags = words.slice(compiler + 1);
  const header = flags[flags.indexOf('-include') + 1];
  const kept = flags.filter((word, i) => !['-include', '-c', '-o', '-MD', '-MT', '-MF', '-fpch-preprocess', '-Winvalid-pch'].includes(word) &&
    !['-include', '-c', '-o', '-MT', '-MF'].includes(flags[i - 1]) && word !== '-MD');
  // Definitions of one target alone are left out of the header that several share.
  const shared = kept.filter((word) => !/^-D(?!QT_|SQLITE|GTEST)/.test(word) && !/^-I.*_autogen/.test(word));
  const pch = flags.includes('-include') ? ['-include-pch', precompile(header, shared)] : [];
  commands.push({ directory: entry.directory, file: entry.file, arguments: ['clang++-14', ...kept, ...pch, '-c', entry.file] });
}
writeFileSync(`${place}/compile_commands.json`, JSON.stringify(commands));

const stamp = (file) => `${place}/clean/${hash(file, readFileSync(file), headers)}`;
const pending = [...new Set(commands.map((command) => relative(root, command.file)))].filter((file) => !existsSync(stamp(file)));
console.log(`${pending.length} files to look at`);
let failed = 0;
async function work() {
  for (let file = pending.pop(); file !== undefined; file = pending.pop()) {
    const run = spawn('clang-tidy-14', ['--quiet', '-p', place, file]);
    let output = '';
    run.stdout.on('data', (data) => { output += data; });
    run.stderr.on('data', (data) => { if (/error/.test(data)) output += data; });
    const code = await new Promise((done) => { run.on('close', done); });
    if (code === 0) writeFileSync(stamp(file), '');
    else { failed += 1; console.error(output.trim()); }
  }
}
await Promise.all(cpus().map(work));
if (failed > 0) { console.error(`${failed} files with findings`); process.exit(1); }
