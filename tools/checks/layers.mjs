// Fails on an #include that runs another way than the arrows below, on units that include each other, and on a window in
// a program without a display.
//
// What it sees: the #include lines. It does not see what one file knows of another without them.
import { basename, dirname, join } from 'node:path';
import { sources, textOf } from './sources.mjs';

// What each room may include, from the ground up: a room names only those above it. An arrow that nothing needs goes.
const arrows = {
  'plug-in headers': [],
  files: [],
  publishing: ['plug-in headers', 'files'],
  base: ['files'],
  store: ['files', 'base'],
  support: ['base', 'store'],
  grid: ['base', 'store'],
  images: ['files', 'base', 'store'],
  publish: ['plug-in headers', 'files', 'base', 'store', 'support', 'images'],
  catalogs: ['files', 'base', 'store', 'support', 'images', 'publish'],
  products: ['base', 'store', 'support', 'grid', 'images', 'publish', 'catalogs'],
  update: ['base', 'support'],
  shell: ['plug-in headers', 'base', 'store', 'support', 'grid', 'images', 'publish', 'catalogs', 'products', 'update'],
  batch: ['base', 'store', 'support', 'images', 'publish', 'catalogs', 'products'],
};
export const problems = [];

const roomOf = (file) => {
  const [top, folder, inFolder] = file.split('/');
  if (file.startsWith('src/publish/plugin/')) return 'plug-in headers';
  if (top === 'plugins') return `plugins/${folder}`;
  if (top === 'src') return inFolder === undefined ? 'precompiled headers' : folder;
  return top;
};
// A plug-in has what a third party has: the plug-in headers, and the libraries of all plug-ins. Tests, benchmarks and tools
// have everything.
const mayInclude = (room, to) =>
  ['tests', 'bench', 'tools'].includes(room) ||
  (room.startsWith('plugins/') ? ['plug-in headers', 'publishing', 'files'].includes(to) : (arrows[room] ?? []).includes(to));

const known = new Set(sources);
const places = ['src', 'src/files', 'src/publish/plugin', 'publishing', 'tests', 'tools', 'plugins/vlhtml', 'plugins/vlhtml/engine'];
const included = new Map(sources.map((file) => [file,
  [...textOf(file).matchAll(/^\s*#\s*include\s+["<]([^">]+)[">]/gm)]
    .map(([, name]) => [dirname(file), ...places].map((place) => join(place, name)).find((path) => known.has(path)))
    .filter((target) => target !== undefined)]));

// The arrows.
const rooms = Object.keys(arrows);
for (const [room, targets] of Object.entries(arrows))
  for (const target of targets)
    if (rooms.indexOf(target) < 0 || rooms.indexOf(target) >= rooms.indexOf(room))
      problems.push(`the list lets ${room} include ${target}, which is not above it`);
const unused = new Set(Object.entries(arrows).flatMap(([room, targets]) => targets.map((target) => `${room} -> ${target}`)));
for (const [file, targets] of included) {
  const room = roomOf(file);
  for (const target of targets) {
    const to = roomOf(target);
    unused.delete(`${room} -> ${to}`);
    if (room !== to && !mayInclude(room, to)) problems.push(`${file} includes ${target}: ${room} has no arrow to ${to}`);
  }
}
for (const arrow of unused) problems.push(`the list has the arrow ${arrow}, which nothing needs`);

// A batch program without a display must not pull a window in.
const isWindow = (file) => /^(?:frm|Widget)/.test(basename(file));
for (const [file, targets] of included)
  if (roomOf(file) === 'batch' && targets.some(isWindow)) problems.push(`${file} includes a window`);

// A unit is a header with its source, and with the further sources that begin with its name and have no header of their
// own. Units that include each other, over however many others, are one unit in truth.
const unitOf = (file) => {
  let name = file.replace(/\.(?:h|cpp)$/, '');
  if (known.has(`${name}.h`)) return name;
  for (let shorter = name; /\w$/.test(shorter); shorter = shorter.slice(0, -1))
    if (known.has(`${shorter}.h`) && included.get(file).includes(`${shorter}.h`)) return shorter;
  return name;
};
const units = new Map();
for (const [file, targets] of included) {
  const unit = unitOf(file);
  if (!units.has(unit)) units.set(unit, new Set());
  for (const target of targets) if (unitOf(target) !== unit) units.get(unit).add(unitOf(target));
}
// The shortest way from a unit back to itself.
const knotOf = (unit) => {
  const ways = [[unit]];
  const seen = new Set();
  for (const way of ways)
    for (const next of units.get(way.at(-1)) ?? []) {
      if (next === unit) return way;
      if (!seen.has(next)) ways.push([...way, next]);
      seen.add(next);
    }
  return [];
};
const knots = new Map();
for (const unit of units.keys()) {
  const way = knotOf(unit);
  if (way.length > 0) knots.set([...way].sort().join(), [...way, unit].join(' -> '));
}
for (const knot of knots.values()) problems.push(`units that include each other: ${knot}`);

export const told = `${sources.length} files, all includes run one way`;
