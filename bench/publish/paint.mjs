// When the largest part of a page is painted on slow 4G (1.6 Mbit/s, 150 ms), on a phone whose processor is four times as
// slow as this one, and what the page has fetched by then. The median of the rounds, without any compression by the server.
//
// usage: node bench/publish/paint.mjs SITE [ROUNDS]
import { readdirSync } from 'node:fs';
import { resolve } from 'node:path';
import { launch, serve } from '../../tests/web/browser.mjs';

/* global PerformanceObserver, performance */
const site = resolve(process.argv[2]);
const rounds = Number(process.argv[3] ?? 5);
const product = readdirSync(site).find((page) => /^p-.*\.html$/.test(page));
const server = await serve(site);
const browser = await launch();
for (const page of ['index.html', 'products.html', product]) {
  const times = [];
  let bytes = 0;
  for (let i = 0; i < rounds; i += 1) {
    const context = await browser.newContext({ viewport: { width: 360, height: 740 }, deviceScaleFactor: 2, isMobile: true });
    const tab = await context.newPage();
    const network = await context.newCDPSession(tab);
    await network.send('Network.emulateNetworkConditions', { offline: false, latency: 150, downloadThroughput: 1.6e6 / 8, uploadThroughput: 0.75e6 / 8 });
    await network.send('Emulation.setCPUThrottlingRate', { rate: 4 });
    await tab.goto(server.address + page, { waitUntil: 'networkidle' });
    times.push(await tab.evaluate(() => new Promise((done) => {
      new PerformanceObserver((list) => done(list.getEntries().at(-1).startTime)).observe({ type: 'largest-contentful-paint', buffered: true });
    })));
    bytes = await tab.evaluate(() => performance.getEntries().reduce((sum, entry) => sum + (entry.transferSize ?? 0), 0));
    await context.close();
  }
  console.log(`${page.padEnd(32)} ${Math.round(times.sort((a, b) => a - b)[Math.floor(rounds / 2)])} ms, ${Math.round(bytes / 1000)} kB`);
}
await browser.close();
server.close();
