// The checks of the sources that need no compiler. usage: node tools/checks/all.mjs [CHECK...]
//
// Each check is a file beside this one that gives what it found, and says at its top what it sees and what it does not.
const known = ['layers', 'boxes', 'files', 'transactions', 'sizes', 'plain_text', 'texts'];

let found = 0;
for (const name of process.argv.length > 2 ? process.argv.slice(2) : known) {
  const { problems, told } = await import(`./${name}.mjs`);
  for (const problem of problems) console.error(`${name}: ${problem}`);
  if (problems.length === 0) console.log(told);
  found += problems.length;
}
process.exitCode = found > 0 ? 1 : 0;
