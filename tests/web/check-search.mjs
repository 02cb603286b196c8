// Finding: search and filters by keyboard, from the disk and from a server, and what is left of them without scripts.
import { readFileSync } from 'node:fs';
import { join } from 'node:path';
import { expect, openTab } from './browser.mjs';

/* global document, getComputedStyle */
const found = (tab) => tab.locator('#results .found strong').textContent();
const until = (tab, text) => tab.locator('#results .found strong', { hasText: text }).waitFor();

// The way of a buyer: three letters, two filters, a price, and a question about the product.
export async function checkBuyer(browser, address) {
  const { tab, problems, close } = await openTab(browser, address, { viewport: { width: 360, height: 740 }, hasTouch: true, isMobile: true });
  const isTrue = (what, fact) => { if (!fact) problems.push(what); };
  const scripts = [];
  tab.on('request', (request) => { if (request.url().endsWith('search-index.js')) scripts.push(request.url()); });
  await tab.goto(`${address}products.html`);
  isTrue('the index is fetched before it is needed', scripts.length === 0);
  await tab.locator('#q').pressSequentially('bow');
  await until(tab, '429');
  isTrue('the list still shows', await tab.locator('#list').isHidden());
  isTrue('the count is not told', await tab.locator('#search [role=status]', { hasText: '429' }).waitFor({ state: 'attached', timeout: 5000 }).then(() => true, () => false));
  await tab.locator('#filters button').click();
  await tab.selectOption('select[name=f1]', 'Line 007');
  isTrue('filter values without products are offered', await tab.locator('select[name=f2] option').count() < 10);
  const shade = await tab.locator('select[name=f2] option').nth(1).getAttribute('value');
  await tab.selectOption('select[name=f2]', shade);
  await until(tab, '1 product');
  isTrue(`${tab.url()} does not tell what is looked for`, new URLSearchParams(new URL(tab.url()).hash.slice(1)).toString() === new URLSearchParams({ q: 'bow', f1: 'Line 007', f2: shade }).toString());
  const other = await tab.context().newPage();
  await other.goto(tab.url());
  await until(other, '1 product');
  isTrue('an address that is passed on shows no query', await other.inputValue('#q') === 'bow' && await other.inputValue('select[name=f2]') === shade);
  await other.close();
  await tab.goBack();
  await tab.goBack();
  await until(tab, '429');
  await tab.goBack();
  await tab.locator('#list').waitFor({ timeout: 5000 });
  isTrue('back does not lead to the list', await tab.locator('#results').isHidden() && await tab.inputValue('#q') === '');
  await tab.goForward();
  await tab.selectOption('select[name=f1]', 'Line 007');
  await tab.selectOption('select[name=f2]', shade);
  await until(tab, '1 product');
  const price = await tab.locator('#results .row > a > .price').textContent();
  isTrue(`no price: ${price}`, /^Price .*\d\d\.50$/.test(price));
  const code = await tab.locator('#results .code').textContent();
  await tab.locator('#results li a').click();
  await tab.waitForURL(/\/p-/);
  const mail = decodeURIComponent(await tab.locator('main a[href^="mailto:"]').first().getAttribute('href'));
  isTrue(`${mail} does not name the product`, mail.includes(code) && /subject=.*Bowl n/.test(mail));
  isTrue('no number to call', await tab.locator('main a[href^="tel:"]').count() === 1);
  expect(`a buyer finds and asks, ${address.split(':')[0]}`, problems);
  await close();
}

// What is found by which words, the keyboard, steps, and the way back from nothing.
export async function checkFinding(browser, address) {
  const { tab, problems, close } = await openTab(browser, address);
  const isTrue = (what, fact) => { if (!fact) problems.push(what); };
  await tab.goto(`${address}products.html`);
  for (const [text, count] of [['k-0042', '1 product'], ['K0042', '1 product'], ['NUMERO', '3,000'], ['strasse', '3,000'], ['GRUENAU', '3,000'], ['gruna', '3,000'], ['谷', '3,000'], ['numero u', 'No products'], ['line 007 bowl', null], ['shade 03', null], ['vase 8', null], ['zzz', 'No products']]) {
    await tab.fill('#q', text);
    if (count) await until(tab, count).catch(async () => problems.push(`${text} finds ${await found(tab)}`));
    else isTrue(`${text} finds nothing`, /^\d/.test(await found(tab)));
  }
  await tab.locator('#results .clear').click();
  isTrue('no way back from nothing', await tab.locator('#list').isVisible() && await tab.inputValue('#q') === '');
  await tab.locator('#q').pressSequentially('0012');
  await tab.keyboard.press('ArrowDown');
  isTrue('the code is not the first hit', (await tab.evaluate(() => document.activeElement.textContent)).includes('K-0012'));
  await tab.keyboard.press('Escape');
  isTrue('Escape does not lead back', await tab.evaluate(() => document.activeElement.id) === 'q');
  await tab.fill('#q', 'vase');
  await tab.emulateMedia({ media: 'print' });
  isTrue('what was found is not printed', await tab.locator('#results li').first().isVisible());
  await tab.emulateMedia({ media: null });
  isTrue(`the page is called ${await tab.title()}`, /^Results for “vase” – /.test(await tab.title()) && /vase/.test(await tab.locator('h1').textContent()));
  await tab.locator('#results .more').click();
  isTrue('no second step', await tab.locator('#results li').count() === 48);
  isTrue('the focus is not on the first new one', await tab.evaluate(() => [...document.querySelectorAll('#results li a')].indexOf(document.activeElement)) === 24);
  await tab.locator('#results li a').last().press('ArrowDown');
  isTrue('down leads nowhere at the last one', await tab.evaluate(() => document.activeElement.matches('.more')));
  expect('search', problems);
  await close();
}

// What stands in the address and its history: one step back for each thing that was asked for.
export async function checkSteps(browser, address) {
  const { tab, problems, close } = await openTab(browser, address);
  const isTrue = (what, fact) => { if (!fact) problems.push(what); };
  await tab.clock.install({ time: 0 });
  await tab.goto(`${address}products.html`);
  await tab.fill('#q', 'vase');
  await until(tab, '429');
  for (const place of ['content', 'contact']) {
    await tab.evaluate(() => window.scrollTo(0, 200));
    await tab.locator(`a[href="#${place}"]`).last().press('Enter');
    isTrue(`a link to #${place} loses the query`, tab.url().endsWith('#q=vase') && await tab.locator('#results').isVisible());
    isTrue(`a link does not lead to #${place}`, await tab.evaluate((id) => document.activeElement.id === id && document.activeElement.getBoundingClientRect().top < window.innerHeight, place));
  }
  await tab.locator('select[name=f1]').focus();
  for (let i = 0; i < 5; i += 1) await tab.keyboard.press('ArrowDown');
  await tab.waitForURL(/f1=Line\+004/);
  await tab.goBack();
  await tab.waitForURL(/#q=vase$/).catch(() => problems.push(`back from a select leads to ${tab.url()}`));
  await tab.clock.pauseAt(3_600_000); // back comes sooner than a letter is written to the address
  await tab.locator('#q').pressSequentially('s');
  await tab.goBack();
  await tab.locator('#list').waitFor();
  await tab.clock.fastForward(1000);
  isTrue('letters are written to the address of the list', tab.url().endsWith('products.html'));
  await tab.clock.resume();

  await tab.goto(`${address}index.html`);
  await tab.locator('#q').pressSequentially('lam');
  await tab.locator('#hits li').first().waitFor();
  await tab.keyboard.press('ArrowDown');
  isTrue('no hit has the focus', await tab.evaluate(() => document.activeElement.closest('#hits') !== null));
  await tab.keyboard.press('Escape');
  isTrue('the hits stay open', await tab.locator('#hits').isHidden());
  for (const again of [() => tab.keyboard.press('ArrowDown'), () => tab.locator('#q').focus()]) {
    await again();
    await tab.locator('#hits li').first().waitFor();
    await tab.locator('.brand').focus();
    isTrue('hits that were left stay open', await tab.locator('#hits').isHidden());
  }
  await tab.locator('#q').focus();
  await tab.locator('#hits li').first().waitFor();
  await tab.locator('#q').dispatchEvent('keydown', { key: 'Escape', isComposing: true });
  isTrue('keys of an input method are taken', await tab.locator('#hits').isVisible());
  await tab.keyboard.press('Enter');
  await tab.waitForURL(/products\.html#q=lam$/);
  await until(tab, '429');

  await tab.goto(`${address}f1-line-007.html`);
  await tab.locator('#filters button').click();
  await tab.locator('select[name=f2]').waitFor();
  isTrue("a value's page does not begin with it", await tab.inputValue('select[name=f1]') === 'Line 007');
  await tab.locator('select[name=f2]').focus();
  await tab.keyboard.press('ArrowDown');
  await tab.keyboard.press('ArrowDown');
  isTrue('choosing leads away', await tab.evaluate(() => document.activeElement.name) === 'f2' && tab.url().endsWith('f1-line-007.html'));
  const shade = await tab.inputValue('select[name=f2]');
  await tab.locator('#filters a', { hasText: '(1)' }).click();
  await until(tab, '1 product');
  isTrue(`${tab.url()} does not tell ${shade}`, tab.url().endsWith(`products.html#f1=Line+007&f2=${shade.replace(' ', '+')}`));
  expect('steps of search and filters', problems);
  await close();
}

// Results say of each product what the list says.
export async function checkAlike(browser, address, query) {
  const { tab, problems, close } = await openTab(browser, address);
  await tab.goto(`${address}products.html`);
  const texts = async (place) => (await tab.locator(`${place} li a`).allTextContents()).map((text) => text.replace(/\s+/g, ' ').trim());
  const list = await texts('#list');
  await tab.fill('#q', query);
  await tab.locator('#results .found').waitFor();
  const results = await texts('#results');
  if (list.length === 0 || results.join('|') !== list.join('|')) problems.push(`${results} is not ${list}`);
  expect(`results are like the list, ${list[0]}`, problems);
  await close();
}

// The index cannot be fetched, or is cut short.
export async function checkWithoutIndex(browser, address, answer) {
  const { tab, close } = await openTab(browser, address);
  const problems = [];
  await tab.route('**/search-index.js', answer);
  await tab.goto(`${address}products.html`);
  await tab.locator('#q').pressSequentially('bow');
  const told = await tab.locator('#results [role=alert]').textContent({ timeout: 5000 });
  if (!/search|ricerca/.test(told) || await tab.locator('#list').isHidden()) problems.push(`"${told}" is told`);
  await tab.locator('#browse summary').first().waitFor({ timeout: 2000 });
  expect('an index that cannot be fetched leaves the list', problems);
  await close();
}

// When the script comes, later than the page is painted, nothing moves.
export async function checkStill(browser, address, page) {
  const { tab, problems, close } = await openTab(browser, address, { viewport: { width: 360, height: 740 } });
  let release;
  const held = new Promise((resolve) => { release = resolve; });
  await tab.route('**/search.js', (route) => held.then(() => route.continue()));
  await tab.goto(address + page, { waitUntil: 'commit' });
  await tab.waitForFunction(() => document.querySelector('footer') && getComputedStyle(document.body).display === 'flex');
  const top = () => tab.evaluate(() => document.querySelector('#list, .hero').getBoundingClientRect().top);
  const before = await top();
  release();
  await tab.locator('#search').waitFor();
  if (await top() !== before) problems.push(`${before} px from the top becomes ${await top()}`);
  expect(`${page} does not move`, problems);
  await close();
}

// Hostile texts stay texts in what scripts show as well.
export async function checkHostile(browser, address) {
  const { tab, problems, close } = await openTab(browser, address);
  await tab.goto(`${address}products.html`);
  for (const text of ['script', 'onerror', 'مزهرية', 'vase', '<img', '🎁']) {
    await tab.fill('#q', text);
    await tab.locator('#results .found').waitFor();
    if (!/^\d/.test(await found(tab))) problems.push(`${text} finds nothing`);
    if (await tab.locator('#results img:not([alt=""]), #results script').count() > 0) problems.push(`${text} brings markup in`);
  }
  await tab.goto(`${address}products.html#q=%3Cimg%20src%3Dx%20onerror%3Dalert(6)%3E&f1=%22%3E%3Cscript%3E`);
  await tab.locator('#results .found').waitFor();
  expect('hostile texts in search and address', problems);
  await close();
}

// Without scripts nothing of the search is seen, and clicks lead to a product.
export async function checkWithoutScripts(browser, address, site) {
  const { tab, problems, close } = await openTab(browser, address, { javaScriptEnabled: false });
  await tab.goto(`${address}index.html`);
  // Whether an element has come to rest is asked of scripts, which do not run here.
  await tab.locator('main a[href="products.html"]').first().click({ force: true });
  for (const id of ['search', 'filters', 'results']) if (await tab.locator(`#${id}`).isVisible()) problems.push(`#${id} is seen`);
  await tab.locator('#list li a').first().click({ force: true });
  if (!/\/p-/.test(tab.url())) problems.push(`a product leads to ${tab.url()}`);
  if (await tab.locator('h1').count() !== 1) problems.push('no heading');
  if (!/^<!DOCTYPE html>/.test(readFileSync(join(site, 'index.html'), 'utf8'))) problems.push('no document type');
  expect('walked without scripts', problems);
  await close();
}
