// A host in JavaScript (Node) that writes a small drawing: the elevation of a beam with its bottom bar
// and its links.
//
//   npm install            once, for koffi
//   node write_drawing.js LIBRARY FILE [LINKS]
//
// On Windows LIBRARY is quorvan.dll, elsewhere libquorvan.so. Lengths are in millimetres. Whatever
// goes wrong is told, and what can be saved is saved.
'use strict';

const koffi = require('koffi');

const BAD_SERIES = 16;

// Wide texts are UTF-16 on Windows, UTF-32 elsewhere.
function wide(text) {
  if (process.platform === 'win32') {
    return Buffer.from(text + '\0', 'utf16le');
  }
  const characters = Array.from(text, (character) => character.codePointAt(0));
  const units = Uint32Array.from([...characters, 0]);
  return Buffer.from(units.buffer);
}

class QuorvanError extends Error {
  constructor(number, text) {
    super(`error ${number}: ${text}`);
    this.number = number;
  }
}

// The flat functions that this host uses, as <quorvan/export/checked.h> declares them, there with
// "Checked" behind their names. All of them return a result: 0, or the number of an error.
function openLibrary(path) {
  const library = koffi.load(path);
  const lastErrorText = library.func('const char* quorvanLastErrorText()');
  const bind = (name, parameters) => {
    const call = library.func(`int ${name}Checked(${parameters.join(', ')})`);
    return (...values) => {
      const result = call(...values);
      if (result !== 0) {
        throw new QuorvanError(result, lastErrorText());
      }
    };
  };
  const text = 'const void*';
  const numbers = 'const double*';
  const doubles = (count) => Array(count).fill('double');
  return {
    startFiling: bind('startFiling', [text]),
    stopFiling: bind('stopFiling', []),
    endFiling: bind('endFiling', [text, 'long', text, 'int']),
    exportFormwork: bind('exportFormwork', ['int', ...Array(6).fill(numbers)]),
    exportText: bind('exportText', [text, ...doubles(4), 'unsigned long', 'int', 'int', 'double']),
    exportBarStraight: bind('exportBarStraight', [...doubles(8), 'uint8_t', 'uint8_t', ...doubles(2),
      text, text, 'long', 'double', 'uint8_t']),
    exportFrameRect: bind('exportFrameRect', [...doubles(11), text, text, 'long', 'double',
      'uint8_t']),
    pushRepartitionFrameRect: bind('pushRepartitionFrameRect', [...doubles(6), text, ...doubles(2),
      text, text, 'long', 'double', 'uint8_t', 'long', 'int', 'int']),
  };
}

function endFiling(quorvan) {
  quorvan.endFiling(wide('2025'), 1, wide('B12'), 42);
}

function writeDrawing(quorvan, path, links) {
  // Four sides of 5000 x 500, two points a side, one bulge a side: straight.
  const xs = [0, 5000, 5000, 5000, 5000, 0, 0, 0];
  const ys = [0, 0, 0, 500, 500, 500, 500, 0];
  const zeros = [0, 0, 0, 0, 0, 0, 0, 0];
  const grade = wide('B500B');
  const bond = wide('HA');

  quorvan.startFiling(wide(path));
  quorvan.exportFormwork(8, xs, ys, zeros, zeros, zeros, zeros);
  quorvan.exportText(wide('Poutre B12 \u2013 1 \u00f8 20'), 0, 600, 0, 0, 7, 0, 0, 100);
  quorvan.exportBarStraight(30, 40, 0, 4970, 40, 0, 150, 150, 1, 1, 90, 90, grade, bond, 1, 20, 0);
  quorvan.exportFrameRect(200, 30, 0, 200, 470, 0, 200, 470, 240, 80, 135, grade, bond, 2, 8, 0);
  for (let link = 0; link < links; ++link) {
    const x = 200 + 200 * link;
    quorvan.pushRepartitionFrameRect(x, 30, 0, x, 470, 0, wide('CKtZantoFrameRect'), 80, 135, grade,
      bond, 2, 8, 0, 1, 1, 0);
  }
  try {
    endFiling(quorvan);
  } catch (error) {
    if (error.number === BAD_SERIES) {
      // Saves the drawing without the series.
      quorvan.stopFiling();
      endFiling(quorvan);
    }
    throw error;
  }
}

function main(library, file, links) {
  if (file === undefined) {
    console.error('usage: node write_drawing.js LIBRARY FILE [LINKS]');
    return 2;
  }
  try {
    writeDrawing(openLibrary(library), file, links === undefined ? 24 : Number(links));
  } catch (error) {
    if (!(error instanceof QuorvanError)) {
      throw error;
    }
    console.error(`${file}: ${error.message}`);
    return 1;
  }
  return 0;
}

process.exitCode = main(...process.argv.slice(2));
