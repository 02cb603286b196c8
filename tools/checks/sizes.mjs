// Fails on procedures of more than 60 lines and classes of more than 500. A procedure counts from the line of its name to
// its last brace, with the lambdas in it; a class with all procedures of its own, in whatever files of its room they
// stand.
//
// What it sees: braces, and what stands before them. Tests are not looked at: many of them are lists of cases.
import { dirname } from 'node:path';
import { codeOf, lineAt, sources } from './sources.mjs';

const MostOfProcedure = 60;
const MostOfClass = 500;

export const problems = [];

const isNamespace = (head) => /(?:^|\s)namespace(?: [\w:]+)?$|^extern ""$/.test(head);
const classOf = (head) => head.replace(/^template ?<.*?> ?/, '').match(/^(?:class|struct|union) (?:\w+ )?([\w:]+)(?: final)?(?: ?:[^:(].*)?$/)?.[1];
// Behind its brackets a procedure has nothing but words such as const, a result, or a list of first values. "[" is a
// lambda's.
const isProcedure = (head) => /[([]/.test(head) && !/=$|\b(?:return|enum)\b/.test(head) &&
  /[)}\]](?: ?(?:const|noexcept|override|final|mutable|try|&&?|->[\w:<>,*& ]+))*$/.test(head);
const ownerOf = (head) => head.match(/([\w:~]+)::[~\w]+ ?\(/)?.[1].split('::').at(-1);

// Tells of each procedure and class of a file, from the outside in; what stands in a procedure is part of it.
function outline(file, tell) {
  const code = codeOf(file);
  const open = [];  // the namespaces and classes around the place
  let begin = 0;    // of what is being read
  const skip = (from) => {
    for (let at = from, depth = 0; at < code.length; ++at)
      if (code[at] === '{') ++depth;
      else if (code[at] === '}' && --depth === 0) return at;
    return code.length;
  };
  for (let at = 0; at < code.length; ++at) {
    if (code[at] === ';') begin = at + 1;
    if (code[at] === '}') {
      const closed = open.pop();
      if (closed === undefined) problems.push(`${file}:${lineAt(code, at)}: a brace closes nothing`);
      else if (closed.name !== undefined) tell({ ...closed, owner: open.at(-1)?.name, end: lineAt(code, at) });
      begin = at + 1;
    }
    if (code[at] !== '{') continue;
    const head = code.slice(begin, at).replace(/\b(?:public|private|protected|Q_SIGNALS)(?: Q_SLOTS)?\s*:(?!:)|\bQ_OBJECT\b/g, (word) => ' '.repeat(word.length));
    const first = lineAt(code, begin + head.search(/\S|$/));
    const words = head.replace(/\s+/g, ' ').trim();
    if (isNamespace(words) || classOf(words) !== undefined) {
      open.push({ kind: 'class', name: isNamespace(words) ? undefined : classOf(words), first });
      begin = at + 1;
      continue;
    }
    at = skip(at);  // a procedure, or values
    if (!isProcedure(words)) continue;
    tell({ kind: 'procedure', name: words, owner: open.at(-1)?.name ?? ownerOf(words), inClass: open.at(-1)?.name !== undefined, first, end: lineAt(code, at) });
    begin = at + 1;
  }
  if (open.length > 0) problems.push(`${file}: a brace is not closed`);
}

const classes = new Map();
const add = (name, lines) => classes.set(name, (classes.get(name) ?? 0) + lines);
const looked = sources.filter((file) => /^(?:src|plugins|tools|bench)\//.test(file));
for (const file of looked)
  outline(file, ({ kind, name, owner, inClass, first, end }) => {
    const lines = end - first + 1;
    if (kind === 'class' && owner === undefined) add(`${dirname(file)} ${name}`, lines);
    if (kind !== 'procedure') return;
    if (owner !== undefined && !inClass) add(`${dirname(file)} ${owner}`, lines);
    if (lines > MostOfProcedure) problems.push(`${file}:${first}: ${lines} lines, at most ${MostOfProcedure}: ${name.slice(0, 80)}`);
  });
for (const [name, lines] of classes) {
  if (lines > MostOfClass) problems.push(`${name}: ${lines} lines, at most ${MostOfClass}`);
}

export const told = `${looked.length} files, procedures up to ${MostOfProcedure} lines, classes up to ${MostOfClass}`;
