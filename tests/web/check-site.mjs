// Looks at published sites: their files, and in Chromium pages of every kind, from a server and from the disk. Sites whose
// folders are called as make_catalogs calls its catalogs are looked at for what these have.
//
// usage: node check-site.mjs SITE...
import { readFileSync, readdirSync } from 'node:fs';
import { basename, join, resolve } from 'node:path';
import { addressOf, counts, knownPath, launch, serve, together } from './browser.mjs';
import { checkFiles } from './check-files.mjs';
import { checkFocus, checkPage, checkPrint } from './check-look.mjs';
import { checkFetched, checkLarge, checkWeight } from './check-pictures.mjs';
import { checkAlike, checkBuyer, checkFinding, checkHostile, checkSteps, checkStill, checkWithoutIndex, checkWithoutScripts } from './check-search.mjs';

const MostOfList = 300_000; // bytes

// Pages of every kind.
function sample(site) {
  const pages = readdirSync(site).filter((name) => name.endsWith('.html'));
  // One for any depth of a known address has its style sheet there.
  const isElsewhere = (page) => page === '404.html' && readFileSync(join(site, page), 'utf8').includes(`"${knownPath}style.css"`);
  const kinds = [/^index\.html$/, /^products\.html$/, /^products-\d+\.html$/, /^f\d\.html$/, /^f\d-/, /^p-/, /^404\.html$/];
  return kinds.flatMap((kind) => {
    const all = pages.filter((page) => kind.test(page) && !isElsewhere(page)).sort();
    return [...new Set([all[0], ...(`${kind}` === '/^p-/' ? [all[Math.floor(all.length / 2)]] : []), all[all.length - 1]])].filter(Boolean);
  });
}

const search = (text) => async (tab) => {
  await tab.fill('#q', text);
  await tab.locator('#results .found, #hits li').first().waitFor();
};

// A page that is not there leads to a product.
async function findFromNowhere(tab) {
  await search('vase')(tab);
  await tab.locator('#hits li a').first().click();
  await tab.waitForURL(/\/catalog\/p-/);
  await tab.goBack();
}

const browser = await launch();
const servers = [];
try {
  const jobs = [];
  for (const site of process.argv.slice(2).map((path) => resolve(path))) {
    const name = basename(site);
    const server = await serve(site);
    servers.push(server);
    const [served, local] = [server.address, addressOf(site)];
    jobs.push(() => checkFiles(site));
    // Of hostile products those of each kind, which are the first.
    const products = name === 'hostile' ? [...readFileSync(join(site, 'products.html'), 'utf8').matchAll(/<a href="(p-[^"]+)"/g)].slice(0, 12).map((match) => match[1]) : [];
    [...new Set([...sample(site), ...products])].forEach((page, i) => jobs.push(() => checkPage(browser, i % 2 ? served : local, page)));
    if (name === 'hostile') jobs.push(() => checkHostile(browser, served), () => checkPage(browser, local, 'products.html', search('vase')));
    if (name === 'hostile') jobs.push(() => checkPage(browser, served, `${knownPath.slice(1)}old/gone.html`, findFromNowhere));
    if (name === 'large') {
      jobs.push(() => checkBuyer(browser, served), () => checkBuyer(browser, local), () => checkFinding(browser, local));
      const half = readFileSync(join(site, 'search-index.js'), 'utf8').slice(0, 50_000);
      for (const answer of [(route) => route.abort(), (route) => route.fulfill({ body: half })]) jobs.push(() => checkWithoutIndex(browser, served, answer));
      jobs.push(() => checkSteps(browser, local), () => checkPage(browser, local, 'products.html', search('bow')));
    }
    if (name === 'five') jobs.push(() => checkAlike(browser, local, 'n-'));
    if (name === 'empty' || name === 'five') continue;
    jobs.push(() => checkWithoutScripts(browser, local, site));
    if (!/^\d+$/.test(name)) continue;
    const product = readdirSync(site).filter((page) => /^p-.*\.html$/.test(page))[3];
    const several = readdirSync(site).find((page) => /^p-.*\.html$/.test(page) && readFileSync(join(site, page), 'utf8').includes('id="large-2"'));
    jobs.push(() => checkLarge(browser, served, several), () => checkPage(browser, local, 'products.html', search('a')));
    jobs.push(() => checkFocus(browser, local, 'products.html', { width: 1024, colorScheme: 'light' }, search('a')));
    for (const page of ['index.html', 'products.html', product]) jobs.push(() => checkFetched(browser, served, page));
    for (const page of ['index.html', product]) jobs.push(() => checkFocus(browser, local, page, { width: 360, colorScheme: 'dark' }));
    for (const page of ['index.html', 'products.html']) jobs.push(() => checkStill(browser, served, page));
    jobs.push(() => checkWeight(browser, served, 'products.html', MostOfList));
    jobs.push(() => checkPrint(browser, local, 'products.html', 4), () => checkPrint(browser, local, 'products.html', 4, search('a')), () => checkPrint(browser, local, product, 1));
  }
  await together(jobs, async (job) => {
    try { await job(); } catch (error) {
      counts.failed += 1;
      console.error(`FAILED ${error.stack}`);
    }
  });
} finally {
  await browser.close();
  for (const server of servers) server.close();
}
console.log(`${counts.passed} passed, ${counts.failed} failed`);
process.exit(counts.failed === 0 ? 0 : 1);
