// Fails where a text that is not the program's own may be shown as markup: Qt renders what looks like it in tool tips,
// labels and boxes, and opens the files that it names.
//
// What it sees: calls of the procedures below, by their words alone. An argument is the program's own if it is put
// together from literals and the helpers for captions; every other one needs PlainToolTip or PlainTitle, or a receiver
// that shows plain text: a label whose text format is said to be plain, in its form or in the same file, or something
// that is no label. What a variable holds it does not know, and so asks for the helper there too. It does not see texts
// that reach a tool tip by another way, as a model's ToolTipRole does.
import { listed, sources, textOf } from './sources.mjs';

const files = sources.filter((file) => /^(?:src|publishing|plugins)\//.test(file));
const forms = listed('*.ui');
export const problems = [];

// Of each control of a form: whether it shows a text as it is.
const controls = new Map();
for (const file of forms)
  for (const [, kind, name, rest] of textOf(file).matchAll(/<widget class="([\w:]+)" name="(\w+)">(.*?)(?=<widget |<\/widget>)/gs))
    controls.set(name, kind !== 'QLabel' || rest.includes('Qt::PlainText'));

// The argument behind the bracket at this place, and where it ends.
const argumentAt = (text, open) => {
  let depth = 0;
  for (let at = open; at < text.length; ++at) {
    if (text[at] === '"') {
      while (text[++at] !== '"') if (text[at] === '\\') ++at;
    } else if (text[at] === '(' || text[at] === '{') ++depth;
    else if ((text[at] === ')' || text[at] === '}') && --depth === 0) return text.slice(open + 1, at).trim();
  }
  return '';
};

const literal = '(?:u?"(?:[^"\\\\]|\\\\.)*"(?:_qs)?\\s*)+';
const ownCall = '(?:Text|Texts::tr|NumberedText|QStringLiteral|QString|QString::fromUtf16|PlainToolTip|PlainTitle)\\(';
const ownText = new RegExp(`^(?:${literal}|\\{\\}|${ownCall}.*)$`, 's');
// "a ? b : c" is the program's own where b and c are.
const isOwn = (argument) => {
  const parts = argument.replace(new RegExp(literal, 'gs'), '"" ').split(/\?|(?<!:):(?!:)/);
  return (parts.length > 1 ? parts.slice(1) : [argument]).every((part) => ownText.test(part.trim()) && !/\.arg\(|\) \+/.test(part));
};

const calls = /\b(setToolTip|setWhatsThis|setText|setLabelText|setInformativeText|setWindowTitle|showText)\(/g;
// Entries of lists and menus, buttons and boxes to type into never show markup.
const noLabels = /^(?:.*clipboard\(\)|.*[iI]tem\(.*\)|.*findChild<QAction\*>\(.*\)|action|entry|button|line|found|clear)$/;

const showsPlain = (text, receiver, name, file) => {
  // The boxes that the program shows everything through are given their titles.
  if (name === 'setWindowTitle') return file.startsWith('src/base/');
  if (name !== 'setText') return false;
  const control = receiver.match(/^ui_?->(\w+)$/)?.[1];
  if (control !== undefined && controls.has(control)) return controls.get(control);
  const plain = text.includes(`${receiver}->setTextFormat(Qt::PlainText)`) || text.includes(`${receiver}.setTextFormat(Qt::PlainText)`);
  return plain || noLabels.test(receiver);
};

// A further text and a step are labels of their own, each made plain by a call of its own.
const innerTexts = /\b(?:setInformativeText|setLabelText)\(/g;
const innerPlain = /^\s+for \(QLabel\* label : \w+(?:\.|->)findChildren<QLabel\*>\(\)\) label->setTextFormat\(Qt::PlainText\)/gm;
const innerHelper = /^\s+PlainLabels\(/gm;
const count = (text, pattern) => [...text.matchAll(pattern)].length;

const isHelped = (name, argument) =>
  name === 'showText' ? argument.includes('PlainToolTip(')
    : /^Plain(?:ToolTip|Title)\(/.test(argument) || (name === 'setToolTip' && /^toolTip\(\)$/.test(argument));

for (const file of files) {
  const text = textOf(file).replace(/^[ \t]*\/\/.*$/gm, '');
  const place = (at) => `${file}:${text.slice(0, at).split('\n').length}`;
  for (const call of text.matchAll(calls)) {
    const [whole, name] = call;
    const receiver = text.slice(0, call.index).match(/((?:[\w.[\]<>*-]|\((?:[^()]|\((?:[^()]|\([^()]*\))*\))*\))*)$/)[1].replace(/(?:->|\.)$/, '');
    const argument = argumentAt(text, call.index + whole.length - 1);
    if (whole.match(innerTexts)) continue;
    if (!isOwn(argument) && !isHelped(name, argument) && !showsPlain(text, receiver, name, file))
      problems.push(`${place(call.index)}: ${name}(${argument.replace(/\s+/g, ' ').slice(0, 60)}) may be shown as markup`);
  }
  if (count(text, innerTexts) > Math.max(count(text, innerPlain), count(text, innerHelper)))
    problems.push(`${file}: a further text or a step shows markup`);
  // A box shows its text plain only when told so; the ready-made ones cannot be told.
  for (const box of text.matchAll(/\bQ(?:MessageBox|InputDialog)::(?:information|question|warning|critical|about|get\w+)\(/g))
    problems.push(`${place(box.index)}: ${box[0]}...) shows markup`);
  for (const [, kind, name] of text.matchAll(/\b(QMessageBox|QInputDialog|QProgressDialog) (\w+)[({;]/g))
    if (!text.includes('setTextFormat(Qt::PlainText)')) problems.push(`${file}: the ${kind} ${name} shows markup`);
}

export const told = `${files.length} files show texts as they are`;
