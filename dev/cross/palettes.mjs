// Reads paths of palettes from standard input. What `chromalog convert` makes of each is compared with what independent
// readers make of it, colour by colour and name by name; then each is written in every kind, and read by them again.
import {build} from 'esbuild';
import {createRequire} from 'node:module';
import {execFileSync} from 'node:child_process';
import {mkdtempSync, readFileSync, rmSync} from 'node:fs';
import {tmpdir} from 'node:os';
import {extname, join} from 'node:path';
import {createInterface} from 'node:readline';
import {Readable} from 'node:stream';

const require = createRequire(import.meta.url);
await build({entryPoints: [require.resolve('adobe-aco')], bundle: true, platform: 'node', format: 'cjs',
             outfile: 'adobe-aco.cjs', logLevel: 'error'});
const {readAcoFile} = require('./adobe-aco.cjs');
const {AcbStreamDecoder} = require('@atesgoral/acb');
const AnyPalette = require('anypalette');

const program = process.argv[2];
const folder = mkdtempSync(join(tmpdir(), 'chromalog-cross-'));
const convert = (...words) => execFileSync(program, ['convert', ...words], {encoding: 'utf8', stdio: ['ignore', 'pipe', 'ignore']});
const read = path => JSON.parse(convert('--json', path));

let compared = 0, colours = 0, differences = 0;
const skipped = [];
const differ = (path, i, what, ours, theirs) => {
  differences++;
  console.log(`${path}: ${i}: ${what}: ${JSON.stringify(ours)} here, ${JSON.stringify(theirs)} there`);
};
const close = (ours, theirs, tolerance) => Math.abs(ours - theirs) <= tolerance;

// Components as this program tells them, from what the packages tell.
function compareSwatches(path, ours) {
  const bytes = readFileSync(path);
  const count = bytes.readUInt16BE(2);
  if (bytes[1] !== 1 || bytes.length < 4 + 10 * count + 5) return false; // the package wants both sections
  const theirs = readAcoFile(bytes.buffer.slice(bytes.byteOffset, bytes.byteOffset + bytes.length), true);
  const known = theirs.filter(([, space]) => space);
  if (known.length !== ours.length) differ(path, '-', 'count', ours.length, known.length);
  known.forEach(([values, space, name], i) => {
    if (ours[i].name !== name) differ(path, i, 'name', ours[i].name, name);
    if (space === 'rgb')
      ours[i].components.forEach((c, k) => close(c, values[k] / 65535, 2e-6) || differ(path, i, 'rgb', ours[i].components, values));
    colours++;
  });
  return true;
}

const fromBook = {
  RGB: c => c.map(v => v / 255),
  CMYK: c => c.map(v => v / 100),
  Lab: c => c,
};
// The package keeps the key of a translation; this program shows its text.
const plain = text => text.replace(/^\$\$\$\/[^=]*=/, '').replaceAll('^R', '\u00ae').replaceAll('^C', '\u00a9');

async function compareBook(path, ours) {
  const decoder = new AcbStreamDecoder();
  const decoded = new Promise((resolve, reject) => decoder.on('book', resolve).on('error', reject));
  Readable.from([readFileSync(path)]).pipe(decoder).resume();
  const book = await decoded;
  const named = book.colors.filter(({name}) => name !== '');
  if (named.length !== ours.length) differ(path, '-', 'count', ours.length, named.length);
  named.forEach(({name, components}, i) => {
    const whole = plain(book.colorNamePrefix ?? '') + plain(name) + plain(book.colorNamePostfix ?? book.colorNameSuffix ?? '');
    if (ours[i].name !== whole) differ(path, i, 'name', ours[i].name, whole);
    const theirs = fromBook[book.colorModel](components);
    const tolerance = book.colorModel === 'RGB' ? 1e-5 : book.colorModel === 'CMYK' ? 0.0051 : 0.51; // it rounds
    ours[i].components.forEach((c, k) => close(c, theirs[k], tolerance) || differ(path, i, 'components', ours[i].components, theirs));
    colours++;
  });
  return true;
}

const loaded = (path, format) => new Promise((resolve, reject) => {
  const data = readFileSync(path, 'latin1');
  const text = ['gpl', 'css', 'soc', 'txt'].includes(extname(path).slice(1)) ? readFileSync(path, 'utf8') : data;
  AnyPalette.loadPalette({data: text, format: AnyPalette.formats[format]}, (error, palette) => error ? reject(error) : resolve(palette));
});
const byte = component => Math.round(component * 255).toString(16).padStart(2, '0');

// What is written, the package's name of it, and whether it reads names.
const kinds = [['gpl', 'gpl', 'GIMP_PALETTE', true], ['ase', 'ase', 'ADOBE_SWATCH_EXCHANGE_PALETTE', true],
               ['aco', 'aco', 'ADOBE_COLOR_SWATCH_PALETTE', true], ['act', 'act', 'ADOBE_COLOR_TABLE_PALETTE', false],
               ['jasc', 'pal', 'PAINT_SHOP_PRO_PALETTE', false], ['riff', 'pal', 'RIFF_PALETTE', false],
               ['paintnet', 'txt', 'PAINTDOTNET_PALETTE', false], ['soc', 'soc', 'STAROFFICE_PALETTE', true],
               ['css', 'css', 'CSS_VARIABLES', false]];

async function compareWritten(path, [kind, extension, format, names]) {
  const written = join(folder, `written.${extension}`), rgb = join(folder, 'rgb.hex');
  convert(path, rgb); // only RGB: the package reads no other space of each kind
  convert(rgb, written, '--to', kind);
  const ours = read(written);
  if (ours.length === 0) return;
  const theirs = await loaded(written, format);
  if (theirs.length < ours.length) differ(path, kind, 'count', ours.length, theirs.length);
  ours.forEach(({hex, name}, i) => {
    const {red, green, blue} = theirs[i] ?? {};
    const there = `#${byte(red)}${byte(green)}${byte(blue)}`;
    if (hex !== there) differ(path, `${kind} ${i}`, 'colour', hex, there);
    const told = (theirs[i]?.name ?? '').replace(/^--/, '');
    if (names && name !== told) differ(path, `${kind} ${i}`, 'name', name, told);
    colours++;
  });
  compared++;
}

for await (const path of createInterface({input: process.stdin})) {
  let ours;
  try {
    ours = read(path);
  } catch {
    differ(path, '-', 'reading', 'refused', '');
    continue;
  }
  try {
    if (path.endsWith('.acb') ? await compareBook(path, ours) : compareSwatches(path, ours)) compared++;
    else skipped.push([path, 'one section alone']);
  } catch (error) {
    skipped.push([path, error.message.split('\n')[0]]); // a file that the package does not read
  }
  for (const kind of kinds) {
    try {
      await compareWritten(path, kind);
    } catch (error) {
      skipped.push([`${path} as ${kind[0]}`, error.message.split('\n')[0]]);
    }
  }
}
rmSync(folder, {recursive: true});
for (const [path, why] of skipped) console.log(`not compared: ${path}: ${why}`);
console.log(`palettes: ${compared} files compared, ${colours} colours, ${differences} differences, ${skipped.length} not compared`);
process.exit(differences ? 1 : 0);
