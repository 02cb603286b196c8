// What pages look like: at every width, in light and dark, enlarged, on paper, with the keyboard, and to axe.
import { basename } from 'node:path';
import { expect, loadPictures, openTab } from './browser.mjs';

// 1440 at 200 per cent is 720 wide, 1280 at 400 per cent is 320 by 225.
const views = [
  { width: 320, height: 225, colorScheme: 'light' }, { width: 360, height: 740, colorScheme: 'dark', axe: true },
  { width: 720, height: 450, colorScheme: 'dark' }, { width: 768, height: 1024, colorScheme: 'light' },
  { width: 360, height: 740, colorScheme: 'light', letters: '200%' }, { width: 1024, height: 768, colorScheme: 'dark' }, { width: 1440, height: 900, colorScheme: 'light', axe: true },
];

/* global document, getComputedStyle, window */
function layoutProblems() {
  const problems = [];
  const wide = document.documentElement.scrollWidth - document.documentElement.clientWidth;
  if (wide > 0) problems.push(`${wide} px wider than the window`);
  if (getComputedStyle(document.body).display !== 'flex') problems.push('the style sheet is not applied');
  for (const image of document.images) {
    if (image.getClientRects().length === 0) continue;
    const box = image.getBoundingClientRect();
    const name = image.currentSrc || image.src;
    if (image.naturalWidth === 0) { problems.push(`not shown: ${name}`); continue; }
    const ratio = image.naturalWidth / image.naturalHeight;
    const stated = image.getAttribute('width') / image.getAttribute('height');
    if (stated && Math.abs(ratio / stated - 1) > 0.03) problems.push(`another shape than stated: ${name}`);
    const frame = image.closest('.frame')?.getBoundingClientRect();
    if (frame && (getComputedStyle(image).objectFit !== 'contain' && Math.abs(box.width / box.height / ratio - 1) > 0.03)) problems.push(`bent: ${name}`);
    if (frame && box.height > frame.width + 1) problems.push(`higher than its frame is wide: ${name}`);
    if (frame && (box.left < frame.left - 1 || box.right > frame.right + 1 || box.top < frame.top - 1 || box.bottom > frame.bottom + 1))
      problems.push(`not whole in its frame: ${name}`);
  }
  // A link that lies under another element cannot be clicked.
  for (const link of document.querySelectorAll('main a, main button')) {
    const box = link.getClientRects()[0];
    if (!link.checkVisibility() || !box || box.top < 0 || box.bottom > window.innerHeight || box.width < 1) continue;
    const [x, y] = [box.left + box.width / 2, box.top + box.height / 2];
    let scroller = link.parentElement; // what is scrolled out of its own box is covered by nothing
    while (scroller && getComputedStyle(scroller).overflowX === 'visible') scroller = scroller.parentElement;
    const seen = scroller?.getBoundingClientRect();
    if (seen && (x < seen.left || x > seen.right || y < seen.top || y > seen.bottom)) continue;
    const top = document.elementFromPoint(x, y);
    if (top && !link.contains(top) && !top.contains(link)) problems.push(`covered: ${link.textContent.trim().slice(0, 40)} by ${top.className || top.tagName}`);
  }
  return problems;
}

async function axeProblems(tab) {
  const violations = await tab.evaluate(async () => {
    const result = await window.axe.run(document, { preload: false, resultTypes: ['violations'], rules: { 'target-size': { enabled: true } } });
    return result.violations.map((violation) => `axe ${violation.id}: ${violation.nodes.map((node) => node.target.join(' ')).slice(0, 3).join(', ')}`);
  });
  return violations;
}

// One page in all views. prepare brings it into a state that its address does not tell.
export async function checkPage(browser, address, page, prepare) {
  const { tab, problems, close } = await openTab(browser, address.slice(0, address.lastIndexOf('/') + 1), { viewport: views[0], colorScheme: views[0].colorScheme });
  const name = `${basename(address.replace(/\/$/, ''))}/${page}`;
  await tab.goto(address + page);
  if (prepare) await prepare(tab);
  for (const view of views) {
    await tab.setViewportSize(view);
    await tab.emulateMedia({ colorScheme: view.colorScheme });
    await tab.evaluate((size) => { document.documentElement.style.fontSize = size; }, view.letters ?? '');
    await loadPictures(tab);
    const about = `at ${view.width} ${view.colorScheme}${view.letters ? ` in letters of ${view.letters}` : ''}: `;
    problems.push(...(await tab.evaluate(layoutProblems)).map((problem) => about + problem));
    if (view.axe) problems.push(...(await axeProblems(tab)).map((problem) => about + problem));
  }
  expect(`${name}${prepare ? ' (prepared)' : ''} looks right`, problems);
  await close();
}

// Whatever can have the focus shows that it has: its pixels change.
export async function checkFocus(browser, address, page, view, prepare) {
  const { tab, problems, close } = await openTab(browser, address, { viewport: { width: view.width, height: 800 }, colorScheme: view.colorScheme });
  await tab.goto(address + page);
  if (prepare) await prepare(tab);
  await loadPictures(tab);
  await tab.evaluate(() => { document.activeElement.blur(); window.scrollTo(0, 0); });
  const seen = new Set();
  for (let i = 0; i < 400; i += 1) {
    await tab.keyboard.press('Tab');
    const place = await tab.evaluate(() => {
      const element = document.activeElement;
      if (element === document.body) return null;
      element.dataset.focused ??= `${document.querySelectorAll('[data-focused]').length}`;
      const box = element.getBoundingClientRect();
      const [left, top] = [Math.max(0, box.left - 8), Math.max(0, box.top - 8)];
      return { number: element.dataset.focused, told: `${element.tagName} ${element.getAttribute('href') ?? element.id}`, hidden: box.width === 0 || box.bottom <= 0 || box.right <= 0,
        clip: { x: left, y: top, width: Math.min(box.right + 8, window.innerWidth) - left, height: Math.min(box.bottom + 8, window.innerHeight) - top } };
    });
    if (place === null || seen.has(place.number)) break;
    seen.add(place.number);
    if (place.hidden || place.clip.width < 1 || place.clip.height < 1) { problems.push(`out of sight with the focus: ${place.told}`); continue; }
    const focused = await tab.screenshot({ clip: place.clip, caret: 'hide' });
    await tab.evaluate(() => { window.last = document.activeElement; window.last.blur(); });
    if (focused.equals(await tab.screenshot({ clip: place.clip, caret: 'hide' }))) problems.push(`focus is not seen: ${place.told}`);
    await tab.evaluate(() => window.last.focus({ preventScroll: true }));
  }
  if (seen.size < 5) problems.push(`only ${seen.size} elements had the focus`);
  expect(`${page} shows the focus at ${view.width} ${view.colorScheme} (${seen.size} places)`, problems);
  await close();
}

// Sheets of paper, A4, and cards that hold what stands in them.
export async function checkPrint(browser, address, page, sheets, prepare) {
  const { tab, problems, close } = await openTab(browser, address, { viewport: { width: 718, height: 1047 } });
  await tab.goto(address + page);
  if (prepare) await prepare(tab);
  await loadPictures(tab);
  await tab.emulateMedia({ media: 'print' });
  problems.push(...await tab.evaluate(() => [...document.querySelectorAll('.card')].filter((card) => card.checkVisibility()).flatMap((card) => {
    const [all, picture, text] = [card, card.querySelector('.frame > *') ?? card.querySelector('.frame'), card.querySelector('.text')].map((one) => one.getBoundingClientRect());
    return text.bottom > all.bottom + 1 || picture.bottom > text.top + 1 ? [`does not fit its card: ${card.textContent.trim().slice(0, 40)}`] : [];
  })));
  const paper = (await tab.pdf({ format: 'A4', printBackground: true, margin: { top: '1cm', bottom: '1cm', left: '1cm', right: '1cm' } })).toString('latin1');
  const printed = paper.match(/\/Type ?\/Page\b(?!s)/g)?.length ?? 0;
  if (printed !== sheets) problems.push(`${printed} sheets instead of ${sheets}`);
  expect(`${page}${prepare ? ' (prepared)' : ''} on paper`, problems);
  await close();
}
