// Which picture files are fetched, and what a page weighs.
import { expect, loadPictures, openTab } from './browser.mjs';

// What "sizes" says of each picture, what is true, and which file was taken. A picture of a choice by width has for its
// natural width what "sizes" says; what it really takes is its box, or less where it keeps its shape in it.
/* global document, getComputedStyle, window */
const pictures = () => [...document.images].filter((image) => image.getClientRects().length > 0).flatMap((image) => {
  const box = image.getBoundingClientRect();
  const ratio = image.getAttribute('width') / image.getAttribute('height');
  const fit = getComputedStyle(image).objectFit;
  const shown = fit === 'contain' ? Math.min(box.width, box.height * ratio) : fit === 'cover' ? Math.max(box.width, box.height * ratio) : box.width;
  const sources = [...image.closest('picture')?.querySelectorAll('source') ?? []].filter((source) => window.matchMedia(source.media || 'all').matches);
  const choice = (sources[0] ?? image).srcset.split(',').map((one) => one.trim().split(' ')).map(([file, width]) => ({ file, width: parseInt(width, 10) }));
  return choice.length < 2 ? [] : [{ shown, said: image.naturalWidth, choice, taken: image.currentSrc, density: window.devicePixelRatio }];
});

// The smallest file that has the pixels, or the largest that there is.
const bestOf = ({ choice, density }, width) => (choice.find((one) => one.width >= width * density) ?? choice[choice.length - 1]).file;

export async function checkFetched(browser, address, page) {
  for (const [width, density] of [[320, 2], [360, 3], [360, 1], [768, 1], [768, 2], [1024, 1], [1440, 1], [1440, 2]]) {
    const { tab, problems, close } = await openTab(browser, address, { viewport: { width, height: 900 }, deviceScaleFactor: density });
    await tab.goto(address + page);
    await loadPictures(tab);
    const all = await tab.evaluate(pictures);
    for (const picture of all) {
      if (Math.abs(picture.said - picture.shown) > Math.max(2, picture.shown * 0.02)) problems.push(`"sizes" says ${picture.said}, it is ${picture.shown}: ${picture.taken}`);
      // Where the truth lies at the border between two files, either is right.
      const right = [0.98, 1, 1.02].map((inexact) => bestOf(picture, picture.shown * inexact));
      if (!right.some((file) => picture.taken.endsWith(file))) problems.push(`${picture.taken} instead of ${right[1]}`);
    }
    expect(`${page} fetches pictures that fit ${width} px at density ${density} (${all.length})`, problems);
    await close();
  }
}

// Pictures as large as the window: the arrows turn them, and however many were looked at, one step back leads to the list.
export async function checkLarge(browser, address, page) {
  const { tab, problems, close } = await openTab(browser, address);
  const shown = async (id) => {
    const large = await tab.evaluate(() => document.querySelector('.large:target')?.id);
    if (large !== id) problems.push(`${large} instead of ${id}`);
  };
  await tab.goto(`${address}products.html`);
  await tab.goto(address + page);
  await tab.locator('.thumbs a').last().click();
  for (const [close, keys] of [[() => tab.keyboard.press('Escape'), 'ArrowRight'], [() => tab.locator('.large:target .close').click(), 'Alt+ArrowRight']]) {
    await tab.locator('#picture-1 a').press('Enter');
    await shown('large-1');
    await tab.keyboard.press(keys);
    const last = keys === 'ArrowRight' ? 2 : 1;
    await shown(`large-${last}`);
    await close();
    await tab.waitForFunction((id) => document.activeElement === document.querySelector(id), `#picture-${last} a`);
    await shown(undefined);
  }
  await tab.goBack();
  if (!tab.url().endsWith('products.html')) problems.push(`back leads to ${tab.url()}`);
  expect(`large pictures of ${page}`, problems);
  await close();
}

// What a phone fetches for a page, down to its end.
export async function checkWeight(browser, address, page, most) {
  const { tab, problems, close } = await openTab(browser, address, { viewport: { width: 360, height: 740 }, deviceScaleFactor: 3 });
  let bytes = 0;
  const sizes = [];
  tab.on('response', (response) => sizes.push(response.body().then((body) => { bytes += body.length; }, () => {})));
  await tab.goto(address + page);
  await tab.waitForFunction(() => document.readyState === 'complete');
  await Promise.all(sizes);
  const first = bytes;
  await loadPictures(tab);
  await Promise.all(sizes);
  if (bytes > most) problems.push(`${Math.ceil(bytes / 1000)} kB`);
  expect(`${page} is light on a phone`, problems);
  console.log(`${page}: ${Math.ceil(first / 1000)} kB at first, ${Math.ceil(bytes / 1000)} kB down to its end`);
  await close();
}
