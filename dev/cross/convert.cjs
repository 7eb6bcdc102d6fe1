// What a command of npm's for palettes does at least: node convert.cjs IN.ase OUT.gpl.
const {decode} = require('ase-utils');
const {readFileSync, writeFileSync} = require('node:fs');
const lines = decode(readFileSync(process.argv[2])).colors.map(({name, color}) => color.map(c => Math.round(c * 255)).join(' ') + '\t' + name);
writeFileSync(process.argv[3], ['GIMP Palette', '#', ...lines, ''].join('\n'));
