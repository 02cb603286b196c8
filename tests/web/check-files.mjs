// The files of a site, without a browser: HTML, links, and which pages a reader without scripts gets to.
import { existsSync, readFileSync, readdirSync } from 'node:fs';
import { basename, join } from 'node:path';
import { HtmlValidate } from 'html-validate';
import { expect, knownPath } from './browser.mjs';

const MostValidated = 150; // of thousands of pages that are made alike
// A title has the product's code whole, however long: it tells one page from another.
const validator = new HtmlValidate({ extends: ['html-validate:recommended'], rules: { 'no-trailing-whitespace': 'off', 'long-title': 'off' } });
const isOutside = (target) => /^(mailto:|tel:|https?:)/.test(target);

// What a page refers to, but for other places: file and, for a place in a page, its identifier.
function targetsOf(html) {
  const single = [...html.matchAll(/ (?:href|src|action)="([^"]*)"/g)].map(([, target]) => target);
  const sets = [...html.matchAll(/ srcset="([^"]*)"/g)].flatMap(([, set]) => set.split(',').map((one) => one.trim().split(' ')[0]));
  const inside = [...single, ...sets].filter((target) => !isOutside(target));
  return inside.map((target) => (target.startsWith(knownPath) ? target.slice(knownPath.length) : target).split('#'));
}

// A mail about a product has a subject of one line, in which nothing turns the direction of the rest.
function isMailWithSubject(link) {
  const mail = new URL(link.replaceAll('&amp;', '&').replaceAll('&apos;', "'"));
  const subject = mail.searchParams.get('subject') ?? '\0';
  return /^[\w.+'-]+@[\w.-]+$/.test(mail.pathname) && [...mail.searchParams].length === 1 && subject.length < 300 && !/[\p{Cc}\u2028-\u202E\u2066-\u2069\uFFFD]/u.test(subject);
}

function problemsOf(site, page, html, identifiers) {
  const problems = [];
  for (const [, attributes, text] of html.matchAll(/<script([^>]*)>([^]*?)<\/script>/g)) {
    if (/type="application\/ld\+json"/.test(attributes)) JSON.parse(text);
    else if (!/^ src="[\w./-]+" defer$/.test(attributes) || text !== '') problems.push(`${page} has a script of its own`);
  }
  if (/<style| href="\s*javascript:/i.test(html) || /<[^>]*\s(?:on[a-z]+|style)=/i.test(html.replace(/="[^"]*"/g, '=""'))) problems.push(`${page} has a script or style in its markup`);
  for (const [, link] of html.matchAll(/ href="(mailto:[^"?]*\?[^"]*)"/g)) if (!isMailWithSubject(link)) problems.push(`${page} writes to ${link}`);
  for (const [file, place] of targetsOf(html)) {
    if (file !== '' && (!/^[A-Za-z0-9._/-]+$/.test(file) || file.includes('..') || !existsSync(join(site, file)))) problems.push(`${page} refers to ${file}`);
    else if (place && !identifiers(file || page).has(place)) problems.push(`${page} refers to ${file}#${place}`);
  }
  return problems;
}

export async function checkFiles(site) {
  const name = basename(site);
  const pages = readdirSync(site).filter((file) => file.endsWith('.html'));
  const html = new Map(pages.map((page) => [page, readFileSync(join(site, page), 'utf8')]));
  const known = new Map();
  const identifiers = (page) => {
    if (!known.has(page)) known.set(page, new Set([...(html.get(page) ?? '').matchAll(/ id="([^"]*)"/g)].map(([, id]) => id)));
    return known.get(page);
  };
  expect(`${name}: links, pictures and scripts`, pages.flatMap((page) => problemsOf(site, page, html.get(page), identifiers)));

  const invalid = [];
  for (const page of pages.filter((_, i) => i % Math.ceil(pages.length / MostValidated) === 0)) {
    const report = await validator.validateString(html.get(page), page);
    for (const result of report.results)
      for (const message of result.messages) invalid.push(`${page}:${message.line} ${message.ruleId} ${message.message}`);
  }
  expect(`${name}: valid HTML`, invalid);

  const reached = new Set(['index.html']);
  const used = new Set(['vorlina-manifest.txt', 'search.js', 'search-index.js', 'sitemap.xml', '404.html']);
  for (const page of reached) {
    for (const [file] of targetsOf(html.get(page))) {
      used.add(file);
      if (html.has(file)) reached.add(file);
    }
    // By its address, in what other sites and search engines read.
    for (const [, file] of html.get(page).matchAll(/"https:\/\/www\.example\.com\/catalog\/(images\/[\w.-]+)"/g)) used.add(file);
  }
  for (const [file] of targetsOf(html.get('404.html') ?? '')) used.add(file);
  expect(`${name}: every page is reached without scripts`, pages.filter((page) => page !== '404.html' && !reached.has(page)));
  const pictures = existsSync(join(site, 'images')) ? readdirSync(join(site, 'images')) : [];
  const files = [...readdirSync(site), ...pictures.map((file) => `images/${file}`)].filter((file) => file !== 'images');
  expect(`${name}: no file without a page`, files.filter((file) => !used.has(file) && !reached.has(file)));
  expect(`${name}: names`, files.filter((file) => basename(file).length > 60 || !/^[A-Za-z0-9._/-]+$/.test(file)));
  const titles = pages.map((page) => html.get(page).match(/<title>([^]*?)<\/title>/)?.[1] ?? '');
  // Hostile codes are longer than a title.
  expect(`${name}: titles`, titles.filter((title, i) => title.trim() === '' || /[\u202A-\u202E\u2066-\u2069]/.test(title) || (name !== 'hostile' && titles.indexOf(title) !== i)));
}
