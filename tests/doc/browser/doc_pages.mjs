// Generates the documentation of a source folder with `quor doc` and opens
// the pages in headless Chromium: every page must load without a console
// error or a request that leaves the output folder, every sidebar link must
// land on its card, and the index must link every module page.
//
// usage: node doc_pages.mjs QUOR_BINARY SOURCE_DIR OUTPUT_DIR [--screenshot FILE.png]

import { execFileSync } from 'node:child_process';
import { mkdtempSync, readdirSync, rmSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join, resolve } from 'node:path';
import { pathToFileURL } from 'node:url';
import { chromium } from 'playwright-core';

const CHROMIUM_FLAGS = [
  '--headless', '--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run',
  '--disable-background-networking', '--disable-component-update', '--disable-sync',
];

const [quor, sourceDir, outputArg, ...options] = process.argv.slice(2);
if (!quor || !sourceDir || !outputArg) {
  console.error('usage: node doc_pages.mjs QUOR_BINARY SOURCE_DIR OUTPUT_DIR [--screenshot FILE.png]');
  process.exit(2);
}
const outputDir = resolve(outputArg);
const screenshotIndex = options.indexOf('--screenshot');
const screenshotFile = screenshotIndex >= 0 ? resolve(options[screenshotIndex + 1]) : null;

let passed = 0;
let failed = 0;
function check(condition, what) {
  if (condition) {
    passed += 1;
  } else {
    failed += 1;
    console.log(`FAIL: ${what}`);
  }
}

function pageUrl(file) {
  return pathToFileURL(join(outputDir, file)).href;
}

// Opens a page and records what went wrong while it loaded and ran.
async function openPage(context, url) {
  const page = await context.newPage();
  const problems = [];
  page.on('console', (message) => {
    if (message.type() === 'error') problems.push(`console error: ${message.text()}`);
  });
  page.on('pageerror', (error) => problems.push(`script error: ${error.message}`));
  page.on('requestfailed', (request) => problems.push(`failed request: ${request.url()}`));
  page.on('request', (request) => {
    if (!request.url().startsWith('file:')) problems.push(`request outside the pages: ${request.url()}`);
  });
  const response = await page.goto(url, { waitUntil: 'load' });
  check(response !== null && response.ok(), `${url} loads`);
  return { page, problems };
}

async function checkIndex(context, modulePages) {
  const { page, problems } = await openPage(context, pageUrl('index.html'));
  const hrefs = await page.$$eval('a.card', (cards) => cards.map((card) => card.getAttribute('href')));
  check(JSON.stringify([...hrefs].sort()) === JSON.stringify(modulePages),
    `index links every module page: ${hrefs.join(', ')} against ${modulePages.join(', ')}`);
  for (const href of hrefs) {
    await page.goto(pageUrl('index.html'), { waitUntil: 'load' });
    await Promise.all([page.waitForURL(pageUrl(href)), page.click(`a.card[href="${href}"]`)]);
    const heading = await page.textContent('main h1');
    check(heading === `Module ${href.replace(/\.html$/, '')}`, `the card ${href} reaches its module page (${heading})`);
    await Promise.all([page.waitForURL(pageUrl('index.html')), page.click('aside.sidebar a[href="index.html"]')]);
    check(page.url() === pageUrl('index.html'), `the page ${href} links back to the index`);
  }
  check(problems.length === 0, `index and module pages ran cleanly: ${problems.join('; ')}`);
  await page.close();
}

async function checkModulePage(context, file) {
  const { page, problems } = await openPage(context, pageUrl(file));
  const links = await page.$$eval('aside.sidebar a[href^="#"]', (anchors) => anchors.map((a) => a.getAttribute('href')));
  const cards = await page.$$eval('.entry-card', (divs) => divs.map((div) => div.id));
  check(links.length > 0, `${file} lists its entries in the sidebar`);
  check(JSON.stringify(links) === JSON.stringify(cards.map((id) => `#${id}`)),
    `${file}: one sidebar link per card, in card order`);
  for (const [position, href] of links.entries()) {
    await page.locator('aside.sidebar a[href^="#"]').nth(position).click();
    const landing = await page.evaluate(() => {
      const target = document.querySelector(':target');
      if (target === null) return null;
      const box = target.getBoundingClientRect();
      return { hash: location.hash, id: target.id, card: target.classList.contains('entry-card'),
        visible: box.top >= 0 && box.top < window.innerHeight };
    });
    check(landing !== null && landing.hash === href && `#${landing.id}` === href && landing.card && landing.visible,
      `${file}: the sidebar link ${href} lands on its card in view (${JSON.stringify(landing)})`);
  }
  check(problems.length === 0, `${file} ran cleanly: ${problems.join('; ')}`);
  await page.close();
}

// The view of a page scrolled to its first function card, where a parameter
// table and a Returns line show, with the sidebar beside it.
async function takeScreenshot(context, file) {
  const { page } = await openPage(context, pageUrl(file));
  await page.evaluate(() => {
    const card = document.querySelector('.entry-card:has(.badge-fn)');
    if (card) window.scrollTo(0, card.getBoundingClientRect().top + window.scrollY - 300);
  });
  await page.screenshot({ path: screenshotFile });
  console.log(`screenshot of ${file} written to ${screenshotFile}`);
  await page.close();
}

rmSync(outputDir, { recursive: true, force: true });
const report = execFileSync(quor, ['doc', sourceDir, outputDir], { encoding: 'utf8' });
check(report.startsWith('Successfully generated documentation for '), `quor doc succeeds: ${report.trim()}`);
const modulePages = readdirSync(outputDir).filter((name) => name.endsWith('.html') && name !== 'index.html').sort();
check(modulePages.length > 0, 'quor doc wrote module pages');
if (failed > 0) {
  console.log(`${passed} passed, ${failed} failed`);
  process.exit(1);
}

const profile = mkdtempSync(join(tmpdir(), 'quor-doc-chromium-'));
const context = await chromium.launchPersistentContext(profile, {
  executablePath: process.env.CHROMIUM || '/usr/bin/chromium',
  headless: true,
  args: CHROMIUM_FLAGS,
  viewport: { width: 1280, height: 900 },
});
try {
  await checkIndex(context, modulePages);
  for (const file of modulePages) await checkModulePage(context, file);
  if (screenshotFile) await takeScreenshot(context, modulePages.includes('shapes.html') ? 'shapes.html' : modulePages[0]);
} finally {
  await context.close();
  rmSync(profile, { recursive: true, force: true });
}

console.log(`${passed} passed, ${failed} failed`);
process.exit(failed === 0 ? 0 : 1);
