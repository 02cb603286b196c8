// What the checks share: Chromium, a web server of their own, and the count of what passed.
import { createServer } from 'node:http';
import { existsSync, readFile, readFileSync } from 'node:fs';
import { createRequire } from 'node:module';
import { extname, join } from 'node:path';
import { pathToFileURL } from 'node:url';
import { chromium } from 'playwright-core';

export const counts = { passed: 0, failed: 0 };
export function expect(what, problems) {
  if (problems.length === 0) { counts.passed += 1; return; }
  counts.failed += 1;
  console.error(`FAILED ${what}`);
  for (const problem of problems.slice(0, 8)) console.error(`  ${problem.slice(0, 300)}`);
}

export const launch = () => chromium.launch({
  executablePath: '/usr/bin/chromium',
  args: ['--headless', '--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run', '--disable-background-networking',
    '--disable-component-update', '--disable-sync'],
});

const kinds = { '.html': 'text/html; charset=utf-8', '.css': 'text/css', '.js': 'text/javascript', '.jpg': 'image/jpeg', '.webp': 'image/webp', '.png': 'image/png', '.xml': 'text/xml' };

// The path of the address that the profile of the hostile catalog has.
export const knownPath = '/catalog/';

// Serves a site as a plain host does: "/" is its first page, and what is not there gets its 404.html. It is at its known
// path as well.
export async function serve(site) {
  const missing = existsSync(join(site, '404.html')) ? readFileSync(join(site, '404.html')) : '';
  const server = createServer((request, response) => {
    const asked = decodeURIComponent(new URL(request.url, 'http://x').pathname);
    const path = asked.startsWith(knownPath) ? asked.slice(knownPath.length - 1) : asked;
    if (path === '/favicon.ico') { response.writeHead(204).end(); return; } // which a browser asks for by itself
    readFile(join(site, path === '/' ? 'index.html' : path), (error, bytes) => {
      response.writeHead(error ? 404 : 200, { 'content-type': kinds[extname(path)] ?? 'text/html; charset=utf-8' });
      response.end(error ? missing : bytes);
    });
  });
  await new Promise((resolve) => { server.listen(0, '127.0.0.1', resolve); });
  return { address: `http://127.0.0.1:${server.address().port}/`, close: () => server.close() };
}

export const addressOf = (site) => `${pathToFileURL(site).href}/`;

const axe = readFileSync(createRequire(import.meta.url).resolve('axe-core/axe.min.js'), 'utf8');

// A tab under the page's own policy, and a list of all that goes wrong in it: what it says, what cannot be fetched, what
// is fetched from elsewhere, and any box that a script puts up.
export async function openTab(browser, address, options = {}) {
  const context = await browser.newContext({ reducedMotion: 'reduce', ...options });
  if (options.javaScriptEnabled !== false) await context.addInitScript({ content: axe });
  context.setDefaultTimeout(10_000);
  const tab = await context.newPage();
  const problems = [];
  const isGone = (message) => message.location().url.endsWith('/gone.html'); // asked for as it is not there
  tab.on('console', (message) => { if (['error', 'warning'].includes(message.type()) && !isGone(message)) problems.push(`console: ${message.text()}`); });
  tab.on('pageerror', (error) => problems.push(`error: ${error.message}`));
  tab.on('dialog', (dialog) => { problems.push(`a script ran: ${dialog.message()}`); dialog.dismiss(); });
  tab.on('requestfailed', (request) => { if (request.failure()?.errorText !== 'net::ERR_ABORTED') problems.push(`failed: ${request.url()}`); });
  tab.on('request', (request) => { if (!request.url().startsWith(address)) problems.push(`outside: ${request.url()}`); });
  return { tab, problems, close: () => context.close() };
}

// All pictures fetched, those that are not seen yet too.
export async function loadPictures(tab) {
  await tab.evaluate(() => { for (const image of document.images) image.loading = 'eager'; });
  await tab.waitForFunction(() => [...document.images].every((image) => image.complete || image.getClientRects().length === 0));
}

// So many at a time as there are processors in the smallest machine that runs this.
export async function together(items, action) {
  const rest = [...items];
  await Promise.all([1, 2].map(async () => {
    while (rest.length > 0) await action(rest.shift());
  }));
}
