// Looks at published sites: every page with an HTML validator and for links and pictures that lead nowhere, and a sample
// of the pages in Chromium, on a desk and on a phone, in light and in dark, with axe-core and with scripts switched off.
//
// usage: node check-site.mjs SITE...
import { mkdtempSync, readFileSync, readdirSync, existsSync, rmSync } from 'node:fs';
import { createRequire } from 'node:module';
import { tmpdir } from 'node:os';
import { basename, join, resolve } from 'node:path';
import { pathToFileURL } from 'node:url';
import { HtmlValidate } from 'html-validate';
import { chromium } from 'playwright-core';

const sites = process.argv.slice(2).map((path) => resolve(path));
const axe = readFileSync(createRequire(import.meta.url).resolve('axe-core/axe.min.js'), 'utf8');
let passed = 0;
let failed = 0;
const expect = (what, problems) => {
  if (problems.length === 0) { passed += 1; return; }
  failed += 1;
  console.error(`FAILED ${what}`);
  for (const problem of problems.slice(0, 8)) console.error(`  ${problem}`);
};

const validator = new HtmlValidate({ extends: ['html-validate:recommended'], rules: { 'no-trailing-whitespace': 'off' } });

// Every page of a site, and everything that it refers to.
async function checkFiles(site, pages) {
  const invalid = [];
  const broken = [];
  const used = new Set(['vorlina-manifest.txt', ...pages.filter((page) => page === 'index.html')]);
  for (const page of pages) {
    const html = readFileSync(join(site, page), 'utf8');
    const report = await validator.validateString(html, page);
    for (const result of report.results)
      for (const message of result.messages) invalid.push(`${page}:${message.line} ${message.ruleId} ${message.message}`);
    if (/<script|\son[a-z]+\s*=|javascript:/i.test(html.replace(/&lt;script/gi, ''))) broken.push(`${page} has a script`);
    for (const [, target] of html.matchAll(/(?:href|src|srcset)="([^"]*)"/g)) {
      if (/^(mailto:|tel:|https?:|#)/.test(target)) continue;
      used.add(target);
      if (!/^[A-Za-z0-9._/-]+$/.test(target) || target.includes('..') || !existsSync(join(site, target))) broken.push(`${page} refers to ${target}`);
    }
  }
  expect(`${basename(site)}: valid HTML`, invalid);
  expect(`${basename(site)}: links and pictures`, broken);
  const files = [...readdirSync(site), ...readdirSync(join(site, 'images')).map((name) => `images/${name}`)];
  expect(`${basename(site)}: no file without a page`, files.filter((file) => file !== 'images' && !used.has(file)));
  expect(`${basename(site)}: names`, files.filter((file) => basename(file).length > 60 || !/^[A-Za-z0-9._/-]+$/.test(file)));
}

// A few pages of every kind.
function sample(pages) {
  const kinds = [/^index\.html$/, /^products\.html$/, /^products-\d+\.html$/, /^f\d/, /^p-/];
  return kinds.flatMap((kind) => {
    const all = pages.filter((page) => kind.test(page));
    return [...new Set([all[0], all[Math.floor(all.length / 2)], all[all.length - 1]])].filter(Boolean);
  });
}

async function checkInBrowser(browser, site, page, view) {
  const name = `${basename(site)}/${page} ${view.name}`;
  const context = await browser.newContext({ viewport: view.viewport, colorScheme: view.scheme, javaScriptEnabled: true, bypassCSP: true });
  const tab = await context.newPage();
  const problems = [];
  tab.on('console', (message) => { if (['error', 'warning'].includes(message.type())) problems.push(message.text()); });
  tab.on('requestfailed', (request) => problems.push(`failed: ${request.url()}`));
  tab.on('request', (request) => { if (!request.url().startsWith('file:')) problems.push(`outside: ${request.url()}`); });
  await tab.goto(pathToFileURL(join(site, page)).href);
  const layout = await tab.evaluate(() => ({
    wide: document.documentElement.scrollWidth - document.documentElement.clientWidth,
    pictures: [...document.images].filter((image) => image.loading !== 'lazy' && image.naturalWidth === 0).map((image) => image.src),
    sizes: [...document.images].filter((image) => image.complete && image.naturalWidth > 0 &&
      (image.currentSrc !== image.src
        ? Math.abs(image.naturalWidth / image.naturalHeight / (image.getAttribute('width') / image.getAttribute('height')) - 1) > 0.03
        : image.naturalWidth !== Number(image.getAttribute('width')) || image.naturalHeight !== Number(image.getAttribute('height')))).map((image) => image.src),
    cut: [...document.querySelectorAll('.frame img')].filter((image) => {
      const [inner, outer] = [image, image.closest('.frame')].map((one) => one.getBoundingClientRect());
      return getComputedStyle(image).objectFit !== 'contain' || inner.width < 150 || inner.left < outer.left - 1 ||
        inner.right > outer.right + 1 || inner.top < outer.top - 1 || inner.bottom > outer.bottom + 1;
    }).map((image) => image.src),
    styled: getComputedStyle(document.body).display === 'flex',
  }));
  if (layout.wide > 0) problems.push(`${layout.wide} px wider than the window`);
  if (!layout.styled) problems.push('the style sheet is not applied');
  for (const src of layout.pictures) problems.push(`not shown: ${src}`);
  for (const src of layout.cut) problems.push(`not whole in its frame: ${src}`);
  for (const src of layout.sizes) problems.push(`another size than stated: ${src}`);
  await tab.evaluate(axe);
  const result = await tab.evaluate(() => window.axe.run(document, { resultTypes: ['violations'] }));
  for (const violation of result.violations) problems.push(`axe ${violation.id}: ${violation.nodes.map((node) => node.target.join(' ')).slice(0, 3).join(', ')}`);
  expect(name, problems);
  await context.close();
}

// The policy in the page's head must let its own style and pictures through, without any help from the browser.
async function checkWithoutScripts(browser, site) {
  const context = await browser.newContext({ javaScriptEnabled: false });
  const tab = await context.newPage();
  const problems = [];
  tab.on('console', (message) => problems.push(message.text()));
  tab.on('requestfailed', (request) => problems.push(`failed: ${request.url()}`));
  await tab.goto(pathToFileURL(join(site, 'index.html')).href);
  // Whether an element has come to rest is asked of scripts, which do not run here.
  await tab.locator('main a.button').click({ force: true });
  await tab.locator('.card a').first().click({ force: true });
  if (!/\/p-/.test(tab.url())) problems.push(`a card leads to ${tab.url()}`);
  if (await tab.locator('h1').count() !== 1) problems.push('no heading');
  const box = await tab.locator('.product').boundingBox();
  if (!box || box.width < 600) problems.push('the style sheet is not applied');
  expect(`${basename(site)}: walked without scripts`, problems);
  await context.close();
}

// Thumbnails are fetched where they have the pixels that the screen shows, and nowhere else.
async function checkFetched(browser, site) {
  for (const [width, density, wanted] of [[1280, 1, 't-'], [800, 1, 't-'], [1280, 2, 'p-'], [400, 1, 'p-'], [400, 3, 'p-']]) {
    const context = await browser.newContext({ viewport: { width, height: 900 }, deviceScaleFactor: density });
    const tab = await context.newPage();
    const fetched = new Set();
    tab.on('request', (request) => { if (/\/images\//.test(request.url())) fetched.add(basename(request.url())); });
    await tab.goto(pathToFileURL(join(site, 'products.html')).href);
    const cards = await tab.evaluate(() => { for (const image of document.images) image.loading = 'eager'; return document.images.length; });
    await tab.waitForFunction(() => [...document.images].every((image) => image.complete));
    const others = [...fetched].filter((name) => !name.startsWith(wanted));
    expect(`${basename(site)}: fetched at ${width} px, density ${density}`, [
      ...others.map((name) => `${name} instead of one with "${wanted}"`), ...(fetched.size === cards ? [] : [`${fetched.size} of ${cards} cards`])]);
    await context.close();
  }
}

// Every link of a product page shows that it has the focus, and a long value breaks no name in mid-word.
async function checkProductPage(browser, site, page) {
  const context = await browser.newContext({ viewport: { width: 1280, height: 900 }, bypassCSP: true });
  const tab = await context.newPage();
  const problems = [];
  await tab.goto(pathToFileURL(join(site, page)).href);
  await tab.evaluate(() => { for (const image of document.images) image.loading = 'eager'; });
  await tab.waitForFunction(() => [...document.images].every((image) => image.complete));
  for (let left = await tab.locator('a').count(); left > 0; left -= 1) {
    await tab.keyboard.press('Tab');
    const link = await tab.evaluate(() => {
      const box = document.activeElement.getBoundingClientRect();
      return { href: document.activeElement.href, x: Math.max(0, box.x - 8), y: Math.max(0, box.y - 8), width: box.width + 16, height: box.height + 16 };
    });
    const focused = await tab.screenshot({ clip: link });
    await tab.evaluate(() => { document.activeElement.style.outline = 'none'; });
    if (focused.equals(await tab.screenshot({ clip: link }))) problems.push(`focus is not seen: ${link.href}`);
    await tab.evaluate(() => { document.activeElement.style.outline = ''; });
  }
  problems.push(...await tab.evaluate(() => {
    document.querySelector('.facts td').textContent = 'una parola e altre '.repeat(6);
    return [...document.querySelectorAll('.facts tbody th')].flatMap((name) => [...name.textContent.matchAll(/\S+/g)].filter((word) => {
      const range = document.createRange();
      range.setStart(name.firstChild, word.index);
      range.setEnd(name.firstChild, word.index + word[0].length);
      return range.getClientRects().length > 1;
    }).map(([word]) => `broken in mid-word: ${word}`));
  }));
  expect(`${basename(site)}/${page} focus and names`, problems);
  await context.close();
}

const views = [
  { name: 'desk-light', viewport: { width: 1280, height: 900 }, scheme: 'light' },
  { name: 'desk-dark', viewport: { width: 1280, height: 900 }, scheme: 'dark' },
  { name: 'phone-light', viewport: { width: 360, height: 740 }, scheme: 'light' },
  { name: 'phone-dark', viewport: { width: 360, height: 740 }, scheme: 'dark' },
];
const profile = mkdtempSync(join(tmpdir(), 'site-check-'));
const browser = await chromium.launch({
  executablePath: '/usr/bin/chromium',
  args: ['--headless', '--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run', '--disable-background-networking',
    '--disable-component-update', '--disable-sync', '--allow-file-access-from-files'],
});
try {
  for (const site of sites) {
    const pages = readdirSync(site).filter((name) => name.endsWith('.html'));
    await checkFiles(site, pages);
    await checkWithoutScripts(browser, site);
    await checkFetched(browser, site);
    await checkProductPage(browser, site, pages.find((page) => /class="more"/.test(readFileSync(join(site, page), 'utf8'))));
    for (const page of sample(pages)) for (const view of views) await checkInBrowser(browser, site, page, view);
  }
} finally {
  await browser.close();
  rmSync(profile, { recursive: true, force: true });
}
console.log(`${passed} passed, ${failed} failed`);
process.exit(failed === 0 ? 0 : 1);
