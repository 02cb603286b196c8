// Fails where a message box, question, progress window or chooser is made outside the seam that all of them go through:
// src/base/Widget*. A window of the program is a frm*, so that a bare QDialog made on the spot is a box too. A plug-in has
// the windows that the program shows for it.
//
// What it sees: Qt's classes by their names. It does not see a window put together from plain widgets.
import { codeOf, sources } from './sources.mjs';

const boxes = 'MessageBox|InputDialog|ProgressDialog|ErrorMessage|FileDialog|ColorDialog|FontDialog|PrintDialog|PrintPreviewDialog|PageSetupDialog';
export const problems = [];

const isSeam = (file) => /^src\/base\/Widget\w+\.\w+$/.test(file);
const isWindow = (file) => /^src\/\w+\/frm\w+\.\w+$/.test(file);
const looked = sources.filter((file) => /^(?:src|publishing|plugins)\//.test(file) && !isSeam(file));

for (const file of looked) {
  const box = new RegExp(`\\bQ(?:${boxes}${isWindow(file) ? '' : '|Dialog'})\\b`);
  codeOf(file).split('\n').forEach((line, at) => {
    const found = line.match(box);
    if (found !== null) problems.push(`${file}:${at + 1}: ${found[0]} outside src/base/Widget*`);
  });
}

export const told = `${looked.length} files, all boxes go through one place`;
