// Reads lines of swatch_dump from standard input and compares them with what independent readers make of the same files.
import {build} from 'esbuild';
import {createRequire} from 'node:module';
import {readFileSync} from 'node:fs';
import {createInterface} from 'node:readline';
import {Readable} from 'node:stream';

const require = createRequire(import.meta.url);
// The modules of this package import each other without extensions: bundled once, they load.
await build({entryPoints: [require.resolve('adobe-aco')], bundle: true, platform: 'node', format: 'cjs',
             outfile: 'adobe-aco.cjs', logLevel: 'error'});
const {readAcoFile} = require('./adobe-aco.cjs');
const {AcbStreamDecoder} = require('@atesgoral/acb');

let compared = 0, differences = 0;
const differ = (path, i, what, ours, theirs) => {
  differences++;
  console.log(`${path}: ${i}: ${what}: ${JSON.stringify(ours)} here, ${JSON.stringify(theirs)} there`);
};
const lowBytes = text => Array.from({length: text.length}, (_, i) => String.fromCharCode(text.charCodeAt(i) & 255)).join('');

// The package wants a section of version 1 in front; one without a second section stores no 16-bit values here.
function readSwatches(bytes) {
  const count = bytes.readUInt16BE(2);
  if (bytes[1] === 2) {
    const front = Buffer.alloc(4 + 10 * count);
    front.writeUInt16BE(1, 0);
    front.writeUInt16BE(count, 2);
    bytes = Buffer.concat([front, bytes]);
  } else if (bytes.length < 4 + 10 * count + 5) {
    return null;
  }
  return readAcoFile(bytes.buffer.slice(bytes.byteOffset, bytes.byteOffset + bytes.length), true);
}

function compareSwatches(path, bytes, ours) {
  const theirs = readSwatches(bytes);
  if (!theirs) return false;
  if (theirs.length !== ours.length) differ(path, '-', 'count', ours.length, theirs.length);
  theirs.forEach(([values, space, name], i) => {
    if (lowBytes(name) !== ours[i]?.name) differ(path, i, 'name', ours[i]?.name, name);
    if (space === 'rgb' && values.slice(0, 3).join() !== ours[i]?.rgb.join()) differ(path, i, 'rgb', ours[i]?.rgb, values);
  });
  return true;
}

const fromByte = {
  RGB: b => b,
  CMYK: b => Math.round((255 - b) / 2.55),
  Lab: (b, i) => i === 0 ? Math.round(b / 2.55) : b - 128,
};

async function compareBook(path, bytes, ours) {
  const decoder = new AcbStreamDecoder();
  const decoded = new Promise((resolve, reject) => decoder.on('book', resolve).on('error', reject));
  Readable.from([bytes]).pipe(decoder).resume();
  const theirs = await decoded;
  if (theirs.colors.length !== ours.colours.length) differ(path, '-', 'count', ours.colours.length, theirs.colors.length);
  theirs.colors.forEach(({code, components}, i) => {
    const {key, components: stored} = ours.colours[i] ?? {key: '', components: []};
    if (key.trim() !== code.trim()) differ(path, i, 'key', key, code); // the package drops the padding
    const scaled = components.map((_, c) => fromByte[theirs.colorModel](stored[c], c));
    if (scaled.some((v, c) => Math.abs(v - components[c]) > 1e-9)) differ(path, i, 'components', scaled, components);
  });
}

const skipped = [];
for await (const line of createInterface({input: process.stdin})) {
  const {path, read} = JSON.parse(line);
  const bytes = readFileSync(path);
  try {
    if (path.endsWith('.acb')) await compareBook(path, bytes, read);
    else if (!compareSwatches(path, bytes, read)) { skipped.push([path, 'version 1 alone']); continue; }
    compared++;
  } catch (error) {
    skipped.push([path, error.message]); // a file that the package does not read
  }
}
for (const [path, why] of skipped) console.log(`not compared: ${path}: ${why}`);
console.log(`${compared} files compared, ${differences} differences, ${skipped.length} not compared`);
process.exit(differences ? 1 : 0);
