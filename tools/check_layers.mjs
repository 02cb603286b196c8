// Fails on an #include that runs against the order of the rooms, on an include cycle between files, on widgets in the
// core, and on a plug-in that includes more than a third party gets.
import { execFileSync } from 'node:child_process';
import { readFileSync } from 'node:fs';
import { dirname, join, normalize } from 'node:path';

const order = ['base', 'store', 'support', 'grid', 'images', 'publish', 'catalogs', 'products', 'update', 'shell', 'batch'];
const files = execFileSync('git', ['ls-files', '--cached', '--others', '--exclude-standard', '*.h', '*.cpp'])
  .toString().trim().split('\n').filter(Boolean);
const known = new Set(files);
const room = (file) => (file.startsWith('src/') ? order.indexOf(file.split('/')[1]) : -1);
const problems = [];
const includes = new Map();

for (const file of files) {
  const found = [];
  for (const [, name] of readFileSync(file, 'utf8').matchAll(/^\s*#\s*include\s+"([^"]+)"/gm)) {
    const target = [join('src', name), normalize(join(dirname(file), name)), join('tests', name),
      join('src/publish/plugin', name)].find((path) => known.has(path));
    if (target) found.push(target);
  }
  includes.set(file, found);
  for (const target of found) {
    if (file.startsWith('src/') && !target.startsWith('src/')) problems.push(`${file} includes ${target}`);
    if (room(file) >= 0 && room(target) > room(file))
      problems.push(`${file} includes ${target}: ${order[room(target)]} lies below ${order[room(file)]}`);
    if (file.startsWith('plugins/') && target.startsWith('src/') && !target.startsWith('src/publish/plugin/'))
      problems.push(`${file} includes ${target}: a plug-in has the plug-in headers alone`);
    if (file.startsWith('src/publish/plugin/') && !target.startsWith('src/publish/plugin/'))
      problems.push(`${file} includes ${target}: a plug-in does not have it`);
  }
}

// A batch program without a display must not pull a window in.
const isWindow = (file) => /\/(frm|Widget)[A-Za-z]*\.(h|cpp)$/.test(file);
for (const [file, found] of includes)
  if (file.startsWith('src/batch/') && found.some(isWindow)) problems.push(`${file} includes a window`);

const state = new Map();
const visit = (file, path) => {
  if (state.get(file) === 'done') return;
  if (state.get(file) === 'open') {
    problems.push(`include cycle: ${[...path.slice(path.indexOf(file)), file].join(' -> ')}`);
    return;
  }
  state.set(file, 'open');
  for (const target of includes.get(file) ?? []) visit(target, [...path, file]);
  state.set(file, 'done');
};
for (const file of files) visit(file, []);

// Two rooms that include each other, through whatever files.
const arrows = new Set();
for (const [file, found] of includes)
  for (const target of found) if (room(file) !== room(target)) arrows.add(`${room(file)} ${room(target)}`);
for (const arrow of arrows) {
  const [from, to] = arrow.split(' ').map(Number);
  if (from >= 0 && to >= 0 && from < to && arrows.has(`${to} ${from}`)) problems.push(`${order[from]} and ${order[to]} include each other`);
}

for (const problem of problems) console.error(problem);
if (problems.length > 0) process.exit(1);
console.log(`${files.length} files, all includes run one way`);
