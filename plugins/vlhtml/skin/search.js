// Search and combined filters, from the one file search-index.js, which is fetched when it is first needed. Nothing of a
// page depends on it: without scripts the field stays hidden, and lists and links lead to every product.
//
// Texts of the catalog get into the page as text alone. What is looked for stands behind "#" in the address, so that it can
// be passed on, and works in a folder that is opened from a disk.
(() => {
  'use strict';

  const step = 24; // results that are added at a time
  const fewHits = 6; // below the field
  const byId = (id) => document.getElementById(id);
  const form = byId('search');
  const field = byId('q');
  if (!form || !field) return;
  const filterBox = byId('filters');
  const own = filterBox?.dataset.filter; // on a filter value's own page
  const results = own ? null : byId('results'); // they take the place of the list of all products
  const products = form.getAttribute('action');
  const root = products.replace(/[^/]*$/, ''); // of the site, where the page may lie at any depth
  const heading = document.querySelector('main > h1');
  const [listHeading, listTitle] = [heading?.textContent, document.title];

  const isWide = window.matchMedia('(min-width: 40rem)');
  let index; // once it has come
  let query = '';
  let chosen = own ? { [own]: filterBox.dataset.value } : {}; // value by filter
  let shown = step;

  // -- Elements

  function make(name, options = {}, ...children) {
    const element = document.createElement(name);
    for (const [key, value] of Object.entries(options))
      if (key in element) element[key] = value;
      else element.setAttribute(key, value);
    element.append(...children);
    return element;
  }

  const hits = make('div', { id: 'hits', hidden: true });
  const status = make('p', { className: 'sr', role: 'status' });
  form.append(hits, status);
  let telling;
  // Told when the reader stops typing.
  function tell(text) {
    clearTimeout(telling);
    telling = setTimeout(() => { status.textContent = text; }, 400);
  }

  // -- Texts

  const letters = { ß: 'ss', œ: 'oe', æ: 'ae', ø: 'o', ł: 'l', đ: 'd', ð: 'd', þ: 'th', ı: 'i' };
  // The words of a text without case and accents, with a blank before each.
  const folded = (text) => ` ${text.toLowerCase().normalize('NFKD').replace(/\p{M}+/gu, '').replace(/[ßœæøłđðþı]/g, (letter) => letters[letter])
    .replace(/[^\p{L}\p{N}\p{So}]+/gu, ' ').trim()}`;
  const umlauts = { ä: 'ae', ö: 'oe', ü: 'ue' };
  // The same words as they are written where there are no umlauts.
  const spelled = (text) => folded(text.toLowerCase().normalize('NFC').replace(/[äöü]/g, (letter) => umlauts[letter]));
  const inBoth = (text) => [...new Set([folded(text), spelled(text)])].join('');
  const joined = (words) => words.replaceAll(' ', '');
  const number = (n) => n.toLocaleString(index.words.lang, { useGrouping: true });
  const filled = (key, n) => index.words[key].replace('{n}', () => number(n));
  const counted = (n) => (n === 0 ? index.words.foundNone : filled(n === 1 ? 'foundOne' : 'foundMany', n));

  // -- The index

  // Columns become products.
  function taken(data) {
    const rows = data.code.map((code, i) => {
      const values = {};
      data.filters.forEach((filter) => { if (filter.of[i]) values[filter.number] = filter.values[filter.of[i] - 1]; });
      const name = data.name[i] || code;
      const page = data.page[i] || `p-${code.toLowerCase()}`;
      const end = data.picture[i] ? data.ends[data.picture[i] - 1] : '';
      return {
        code, name, values, page: `${root}${page}.html`, price: data.price?.[i], value: data.value?.[i],
        picture: end && root + (end.startsWith('images/') ? end : `images/${page}${end}`),
        inCode: inBoth(code), whole: joined(folded(code)), inName: inBoth(name),
        inText: inBoth(`${data.value?.[i] || ''} ${data.text[i] || ''} ${Object.values(values).join(' ')}`),
      };
    });
    return { words: data.words, label: data.label, filters: data.filters, rows };
  }

  let coming;
  function load() {
    coming ||= new Promise((resolve, reject) => {
      form.setAttribute('aria-busy', 'true');
      window.vorlinaIndex = (data) => resolve(taken(data));
      document.head.append(make('script', { src: `${root}search-index.js`, onerror: reject, onload: reject })); // the latter for one that is cut short
    }).then((data) => { index = data; }).finally(() => form.removeAttribute('aria-busy'));
    return coming;
  }

  // -- Finding

  // One letter alone says little, and only begins words; one of a script without blanks may be a word.
  const says = (word) => word.length > 1 || /[\p{sc=Han}\p{sc=Hira}\p{sc=Kana}]/u.test(word);

  // How well a word is matched, 1 best; Infinity where it is not.
  function rank(row, word) {
    const begin = ` ${word}`;
    const within = says(word);
    if (row.inCode.startsWith(begin)) return 1;
    if (row.inName.includes(begin)) return 2;
    if (within && row.inCode.includes(word)) return 3;
    if (within && row.inName.includes(word)) return 4;
    if (row.inText.includes(begin)) return 5;
    return within && row.inText.includes(word) ? 6 : Infinity;
  }

  // The products that have all words that are asked for, codes first.
  function matching(sought) {
    const text = folded(sought);
    if (text === ' ') return sought.trim() ? [] : index.rows;
    const others = spelled(sought).slice(1).split(' ');
    const words = text.slice(1).split(' ').map((word, i) => [...new Set([word, others[i]])]);
    const whole = joined(text);
    return index.rows.map((row) => {
      if (row.whole === whole) return { row, rank: -1 };
      if (row.whole.startsWith(whole)) return { row, rank: 0 };
      return { row, rank: words.reduce((sum, forms) => sum + Math.min(...forms.map((word) => rank(row, word))), 0) };
    }).filter((hit) => hit.rank < Infinity).sort((one, other) => one.rank - other.rank).map((hit) => hit.row);
  }

  const has = (row, without) => index.filters.every(({ number: n }) => n === without || !chosen[n] || row.values[n] === chosen[n]);

  // -- The address

  function parameters() {
    const all = new URLSearchParams();
    if (query.trim()) all.set('q', query.trim());
    for (const [n, value] of Object.entries(chosen)) if (value) all.set(`f${n}`, value);
    return all.toString();
  }

  const asked = (text) => [...new URLSearchParams(text)].filter(([key]) => /^(q|f\d)$/.test(key));

  function readAddress() {
    const { q = '', ...filters } = Object.fromEntries([...asked(location.search), ...asked(location.hash.slice(1))]);
    query = q.slice(0, 200);
    chosen = {};
    for (const [key, value] of Object.entries(filters)) chosen[key.slice(1)] = value;
    shown = history.state?.shown || step;
  }

  let wasEmpty = true;
  let writing;
  // One step back leads to the list, and to the filters as they were before; not to each letter.
  function writeAddress(asStep) {
    clearTimeout(writing);
    const text = parameters();
    const page = location.href.split(/[?#]/)[0];
    const push = asStep ?? (wasEmpty && text !== '');
    wasEmpty = text === '';
    const write = () => history[push ? 'pushState' : 'replaceState']({ shown }, '', text ? `${page}#${text}` : page);
    if (push) write();
    else writing = setTimeout(write, 300);
  }

  // -- Showing

  const part = (name, text) => make('span', { className: name, dir: 'auto' }, text);

  function frame(row, always) {
    if (!row.picture) return always ? [make('span', { className: 'frame none' })] : [];
    return [make('span', { className: 'frame' }, make('img', { className: 'tiny', loading: 'lazy', decoding: 'async', alt: '', src: row.picture }))];
  }

  function card(row, kind) {
    const text = make('span', { className: 'text' }, part('name', row.name));
    if (row.name !== row.code) text.append(' ', part('code', row.code));
    const link = make('a', { href: row.page }, ...frame(row, kind === 'card'), text);
    if (row.price || row.value) { // in rows a column of its own
      const label = make('span', { className: row.price ? 'sr' : 'label' }, index.label);
      const shown = row.price ? make('span', { className: 'price' }, label, ' ', row.price) : part('value', '');
      if (row.value) shown.append(label, ' ', row.value);
      (kind === 'row' ? link : text).append(' ', shown);
    }
    return make('li', { className: kind }, link);
  }

  function showList(visible) {
    byId('list').style.visibility = '';
    byId('list').hidden = !visible;
    if (visible) head(listHeading, listTitle);
  }

  function head(text, title) {
    heading.textContent = text;
    document.title = title;
  }

  function headOfFound() {
    const values = Object.values(chosen).filter(Boolean).join(', ');
    const text = query.trim() ? index.words.searchFor.replace('{q}', () => query.trim()) : values;
    const site = document.querySelector('meta[property="og:site_name"]')?.content;
    head(text, site ? `${text} – ${site}` : text);
  }

  const all = make('a', { className: 'button', hidden: true });

  function makeFilters() {
    filterBox.replaceChildren(...index.filters.map(({ number: n, name }) =>
      make('label', {}, make('span', { dir: 'auto' }, name), make('select', { name: `f${n}` }))), all);
    filterBox.setAttribute('role', 'group');
    filterBox.setAttribute('aria-label', index.words.filters);
  }

  // Selects of all filters, each value with what would remain.
  function showFilters(found) {
    if (!filterBox.querySelector('select')) makeFilters();
    for (const { number: n, values } of index.filters) {
      const counts = new Map();
      for (const row of found) if (row.values[n] && has(row, n)) counts.set(row.values[n], (counts.get(row.values[n]) || 0) + 1);
      const select = filterBox.querySelector(`[name=f${n}]`);
      select.replaceChildren(make('option', { value: '' }, index.words.any),
        ...values.filter((value) => counts.has(value) || value === chosen[n])
          .map((value) => make('option', { value }, value === chosen[n] ? value : `${value} (${number(counts.get(value) || 0)})`)));
      select.value = chosen[n] || '';
    }
  }

  // A filter value's page shows its own products; what is chosen there besides is a link away.
  function showWay(found) {
    const text = parameters();
    all.href = wayTo(text);
    all.textContent = filled('showFound', found.length);
    all.hidden = text === `${new URLSearchParams({ [`f${own}`]: filterBox.dataset.value })}`;
    tell(all.hidden ? '' : counted(found.length));
  }

  function clear() {
    query = field.value = '';
    chosen = {};
    update(true);
    field.focus();
  }

  function showResults(found) {
    const list = byId('list').querySelector('ul.cards, ul.rows');
    const rows = list && list.className === 'rows';
    const items = (from, to) => found.slice(from, to).map((row) => card(row, rows ? 'row' : 'card'));
    const cards = make('ul', { className: rows ? 'rows' : 'cards' }, ...items(0, shown));
    const more = make('button', { type: 'button', className: 'button more' });
    const count = () => {
      more.hidden = shown >= found.length;
      more.textContent = filled('showMore', Math.min(step, found.length - shown));
    };
    more.onclick = () => {
      cards.append(...items(shown, shown + step));
      shown += step;
      count();
      writeAddress(false);
      cards.children[shown - step].querySelector('a').focus();
    };
    count();
    headOfFound();
    const line = make('p', { className: 'found' }, make('strong', {}, counted(found.length)), ' ',
      make('button', { type: 'button', className: 'clear', onclick: clear }, index.words.clear));
    results.replaceChildren(line, ...(found.length ? [cards, more] : [make('p', {}, index.words.foundNoneHint)]));
    tell(counted(found.length));
  }

  // The page as query and filters have it.
  function show() {
    const found = matching(query);
    for (const n of Object.keys(chosen)) // an address may be older than the site
      if (!index.filters.some((filter) => `${filter.number}` === n && filter.values.includes(chosen[n]))) delete chosen[n];
    const empty = parameters() === '';
    // On a phone the results come first, and the filters when they are asked for.
    if (filterBox?.querySelector('select') || (filterBox && (Object.values(chosen).some(Boolean) || (!empty && isWide.matches)))) showFilters(found);
    if (own) showWay(found.filter((row) => has(row)));
    if (!results) return;
    results.hidden = empty;
    showList(empty);
    if (empty) results.replaceChildren();
    else showResults(found.filter((row) => has(row)));
    if (empty) tell('');
  }

  function update(asStep) {
    shown = step;
    if (results) writeAddress(asStep);
    show();
  }

  const typedText = () => field.value.slice(0, 200);
  const wayTo = (text) => (text ? `${products}#${text}` : products);
  const wayToFound = () => wayTo(new URLSearchParams({ q: typedText().trim() }));

  // Elsewhere the best hits stand below the field.
  function showHits() {
    hits.hidden = !says(typedText().trim()) || !form.contains(document.activeElement);
    if (hits.hidden) { tell(''); return; }
    const found = matching(typedText());
    hits.replaceChildren(...(found.length
      ? [make('ul', {}, ...found.slice(0, fewHits).map((row) => card(row, 'hit'))),
        make('a', { className: 'all', href: wayToFound() }, filled('showFound', found.length))]
      : [make('p', {}, make('strong', {}, index.words.foundNone)), make('p', {}, index.words.foundNoneHint)]));
    tell(counted(found.length));
  }

  function failed() {
    coming = undefined;
    const place = results || hits;
    place.replaceChildren(make('p', { role: 'alert' }, form.dataset.failed || ''));
    place.hidden = false;
    if (results) showList(true);
    const browse = byId('browse');
    if (!browse) return;
    browse.hidden = false;
    browse.style.animationDelay = '0s';
  }

  const withIndex = (action) => load().then(action, failed);

  // -- Events

  function typed() {
    if (results) query = typedText();
    withIndex(() => (results ? update() : showHits()));
  }

  field.addEventListener('focus', (event) => {
    if (!results && field.value && !form.contains(event.relatedTarget)) typed();
    else load().catch(() => { coming = undefined; });
  });
  field.addEventListener('input', typed);
  form.addEventListener('submit', (event) => {
    event.preventDefault();
    if (results) typed();
    else if (field.value.trim()) location.href = wayToFound();
  });

  // Keys and clicks that the browser, or what puts letters together, has its own use for.
  const isElsewhere = (event) => event.ctrlKey || event.altKey || event.metaKey || event.shiftKey || event.isComposing || event.keyCode === 229;

  // A large picture by keys: Escape closes it, the arrows lead to the others.
  document.addEventListener('keydown', (event) => {
    const number = { ArrowLeft: -1, ArrowRight: 1 }[event.key];
    const large = document.querySelector('.large:target');
    if (!large || isElsewhere(event) || (!number && event.key !== 'Escape')) return;
    const other = byId(`large-${Number(large.id.slice(6)) + number}`);
    const link = event.key === 'Escape' ? large.querySelector('.close') : large.querySelector(`a[href="#${other?.id}"]`);
    link?.click();
  });

  // Pictures that were looked at are one step of the history, which closing takes back.
  let isOpenedHere = false;
  function turn(link) {
    const gallery = byId(link.closest('.large').id.replace('large', 'picture'))?.querySelector('a');
    if (!link.matches('.close')) { location.replace(link.href); return; }
    window.addEventListener('hashchange', () => gallery?.focus(), { once: true });
    if (isOpenedHere) history.back();
    else location.replace(link.href);
    isOpenedHere = false;
  }

  document.addEventListener('click', (event) => {
    const link = event.target.closest('a[href^="#"]');
    const target = link && byId(link.hash.slice(1));
    if (!target || isElsewhere(event)) return;
    if (link.closest('.large')) turn(link);
    else if (link.closest('.thumbs')) location.replace(link.href);
    else if (results && parameters()) { // which stay in the address
      target.tabIndex = -1;
      target.focus({ preventScroll: true });
      target.scrollIntoView();
    } else {
      isOpenedHere ||= target.matches('.large');
      return;
    }
    event.preventDefault();
  });

  // Up and down walk through what was found, Escape goes back.
  document.addEventListener('keydown', (event) => {
    const place = results || hits;
    const inside = place.contains(event.target);
    if (isElsewhere(event) || (!inside && event.target !== field)) return;
    if (event.key === 'Escape') {
      hits.hidden = true;
      if (results && !inside && field.value) { field.value = ''; typed(); }
      field.focus();
    }
    const move = { ArrowDown: 1, ArrowUp: -1 }[event.key];
    if (!move) return;
    if (place.hidden) { if (place === hits && move > 0) typed(); return; }
    const links = [...place.querySelectorAll('a, .more:not([hidden])')];
    const next = inside ? links.indexOf(event.target) + move : move - 1;
    if (next >= links.length) return; // the page scrolls on
    event.preventDefault();
    (links[next] || field).focus();
  });
  // A finger that touches a hit takes the focus from the field before the link gets it.
  form.addEventListener('focusout', (event) => { if (event.relatedTarget && !form.contains(event.relatedTarget)) hits.hidden = true; });
  document.addEventListener('pointerdown', (event) => { if (!form.contains(event.target)) hits.hidden = true; });

  if (filterBox) {
    const open = filterBox.querySelector('button');
    if (open) open.onclick = () => withIndex(() => { showFilters(matching(query)); filterBox.querySelector('select')?.focus(); });
    // Keys go through the values of a select one by one: one step for all.
    let changed;
    filterBox.addEventListener('change', (event) => {
      chosen[event.target.name.slice(1)] = event.target.value;
      update(changed !== event.target);
      changed = event.target;
    });
    filterBox.addEventListener('focusout', () => { changed = undefined; });
    filterBox.hidden = false;
  }

  function arrive() {
    clearTimeout(writing);
    readAddress();
    field.value = query;
    wasEmpty = parameters() === '';
    if (wasEmpty && !index) return;
    // Until results come, the list keeps their room.
    if (wasEmpty) showList(true);
    else if (results.hidden) byId('list').style.visibility = 'hidden';
    withIndex(show);
  }

  form.hidden = false;
  if (results) {
    // The filters here narrow by several values at once; those of the list are for readers without scripts.
    if (filterBox && byId('browse')) byId('browse').hidden = true;
    window.addEventListener('popstate', arrive);
    arrive();
  }
})();
