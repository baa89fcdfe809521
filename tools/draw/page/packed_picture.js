
// The shapes of a packed picture as typed arrays, in the order in which they are painted. Lengths are
// millimetres of the sheet, y downwards.
function unpackedPicture(packed) {
  const kindOf = {line: 0, left: 1, right: 2, circle: 3, move: 4, close: 5};
  const count = packed.count;
  const picture = {
    width: packed.width,
    height: packed.height,
    window: packed.window,
    count: count,
    steps: kindOf,
    styles: packed.styles.map(function (style) {
      return {color: style[0], width: style[1] / 1000, isFilled: style[2], isOnPaper: style[4],
              dashes: style[3].map(function (one) { return one / 1000; })};
    }),
    // A text runs from the side that its first letter does.
    runsFromRight: packed.texts.map(function (text) {
      return /^\P{L}*[\p{Script=Hebrew}\p{Script=Arabic}\p{Script=Syriac}\p{Script=Thaana}]/u.test(text);
    }),
    // White space as in a document: runs of it are one blank.
    texts: packed.texts.map(function (text) { return text.replace(/[ \t\r\n]+/g, ' ').replace(/^ | $/g, ''); }),
    kinds: new Uint8Array(count),     // 0 a path, 1 a circle, 2 a text
    hidden: new Uint8Array(count),
    layers: new Uint8Array(count),
    layerNames: packed.layers.map(function (layer) { return layer[0]; }),
    style: new Uint32Array(count),
    element: new Int32Array(count),   // its place, -1 for none
    x: new Float64Array(count),
    y: new Float64Array(count),
    of: new Uint32Array(count),       // its body, or its text
    size: new Float32Array(count),    // a radius, or the size of a font
    angle: new Float32Array(count),   // of a text, in radians clockwise
    align: new Uint8Array(count)
  };

  function bytesOf(base64) {
    const text = atob(base64);
    const bytes = new Uint8Array(text.length);
    for (let i = 0; i < bytes.length; i += 1) { bytes[i] = text.charCodeAt(i); }
    return bytes;
  }

  function reader(base64) {
    const bytes = bytesOf(base64);
    let at = 0;
    function whole() {
      let value = 0;
      let unit = 1;
      for (;;) {
        const byte = bytes[at];
        at += 1;
        if (byte < 128) { return value + byte * unit; }
        value += (byte - 128) * unit;
        unit *= 128;
      }
    }
    function signed() {
      const value = whole();
      return value % 2 === 0 ? value / 2 : -(value + 1) / 2;
    }
    return {whole: whole, signed: signed};
  }

  // Bodies: for each its steps, and the numbers of each step from its own place in "numbers" on.
  function readBodies() {
    const input = reader(packed.bodies);
    const steps = [];
    const numbers = [];
    const firstStep = new Uint32Array(packed.bodyCount + 1);
    const firstNumber = new Uint32Array(packed.bodyCount + 1);
    const boxes = new Float32Array(packed.bodyCount * 4);
    for (let body = 0; body < packed.bodyCount; body += 1) {
      let x = 0;
      let y = 0;
      let left = 0, top = 0, right = 0, bottom = 0;
      const reach = function (px, py) {
        if (px < left) { left = px; } else if (px > right) { right = px; }
        if (py < top) { top = py; } else if (py > bottom) { bottom = py; }
      };
      for (let run = input.whole(); run !== 0; run = input.whole()) {
        const kind = run % 8;
        for (let left = (run - kind) / 8; left > 0; left -= 1) {
          steps.push(kind);
          if (kind === kindOf.close) { continue; }
          const wayX = x + input.signed() / 1000;
          const wayY = y + input.signed() / 1000;
          if (kind === kindOf.line || kind === kindOf.move) {
            x = wayX;
            y = wayY;
            numbers.push(x, y);
            reach(x, y);
            continue;
          }
          const radius = Math.hypot(x - wayX, y - wayY);
          const begin = Math.atan2(y - wayY, x - wayX);
          if (kind !== kindOf.circle) {
            x += input.signed() / 1000;
            y += input.signed() / 1000;
          }
          numbers.push(wayX, wayY, radius, begin, kind === kindOf.circle ? begin + 2 * Math.PI
              : Math.atan2(y - wayY, x - wayX), x, y);
          reach(wayX - radius, wayY - radius);
          reach(wayX + radius, wayY + radius);
        }
      }
      boxes.set([left, top, right, bottom], body * 4);
      firstStep[body + 1] = steps.length;
      firstNumber[body + 1] = numbers.length;
    }
    return {steps: Uint8Array.from(steps), numbers: Float32Array.from(numbers), firstStep: firstStep,
            firstNumber: firstNumber, boxes: boxes};
  }

  function readShapes() {
    const input = reader(packed.shapes);
    let x = 0;
    let y = 0;
    let element = 0;
    for (let i = 0; i < count; i += 1) {
      const head = input.whole();
      picture.hidden[i] = head % 2;
      const kind = picture.kinds[i] = (head >> 1) % 4;
      picture.style[i] = head >> 3;
      const way = input.whole();
      if (way > 0) { element += (way - 1) % 2 === 0 ? (way - 1) / 2 : -way / 2; }
      picture.element[i] = way > 0 ? element : -1;
      picture.x[i] = (x += input.signed()) / 1000;
      picture.y[i] = (y += input.signed()) / 1000;
      if (kind === 1) {
        picture.size[i] = input.whole() / 1000;
      } else {
        picture.of[i] = input.whole();
      }
      if (kind === 2) {
        picture.size[i] = input.whole() / 1000;
        picture.angle[i] = input.signed() / 1000 * Math.PI / 180;
        picture.align[i] = input.whole();
      }
    }
    let at = 0;
    packed.layers.forEach(function (layer, number) {
      picture.layers.fill(number, at, at += layer[1]);
    });
  }

  function readGrid() {
    const input = reader(packed.grid.cells);
    const cells = packed.grid.columns * packed.grid.rows;
    const first = new Uint32Array(cells + 1);
    const shapes = new Uint32Array(packed.grid.entries);
    function read(into, from) {
      const number = input.whole();
      let shape = 0;
      for (let i = 0; i < number; i += 1) { into[from + i] = shape += input.whole(); }
      return from + number;
    }
    const wide = [];
    read(wide, 0);
    for (let cell = 0; cell < cells; cell += 1) { first[cell + 1] = read(shapes, first[cell]); }
    return {box: packed.grid.box, columns: packed.grid.columns, rows: packed.grid.rows, first: first,
            shapes: shapes, wide: wide};
  }

  picture.bodies = readBodies();
  readShapes();
  picture.grid = readGrid();
  picture.boxes = boxesOfShapes(picture);
  return picture;
}

// The boxes of the shapes, each as left, top, right and bottom; that of a text as long as its letters may be.
function boxesOfShapes(picture) {
  const boxes = new Float32Array(4 * picture.count);
  for (let i = 0; i < picture.count; i += 1) {
    const x = picture.x[i];
    const y = picture.y[i];
    const half = picture.styles[picture.style[i]].width / 2;
    let box;
    if (picture.kinds[i] === 0) {
      const body = picture.of[i] * 4;
      const of = picture.bodies.boxes;
      box = [x + of[body] - half, y + of[body + 1] - half, x + of[body + 2] + half, y + of[body + 3] + half];
    } else if (picture.kinds[i] === 1) {
      const reach = picture.size[i] + half;
      box = [x - reach, y - reach, x + reach, y + reach];
    } else {
      const [a, b, c, d] = textCorners(picture, i, 1.1 * picture.size[i]);
      box = [Math.min(a[0], b[0], c[0], d[0]), Math.min(a[1], b[1], c[1], d[1]),
             Math.max(a[0], b[0], c[0], d[0]), Math.max(a[1], b[1], c[1], d[1])];
    }
    boxes.set(box, 4 * i);
  }
  return boxes;
}

// The corners of a text whose letters have that width, from a little under its base line to its top.
function textCorners(picture, i, letter) {
  const length = picture.texts[picture.of[i]].length * letter;
  const begin = -length * picture.align[i] / 2;
  const cos = Math.cos(picture.angle[i]);
  const sin = Math.sin(picture.angle[i]);
  return [[begin, 0.3], [begin + length, 0.3], [begin + length, -1], [begin, -1]].map(function (one) {
    const down = one[1] * picture.size[i];
    return [picture.x[i] + one[0] * cos - down * sin, picture.y[i] + one[0] * sin + down * cos];
  });
}

// The shapes that meet the box, in the order in which they are painted. The grid of the program says where
// to look.
function shapesWithin(picture, box) {
  const grid = picture.grid;
  const boxes = picture.boxes;
  const found = [];
  function meets(i) {
    return boxes[4 * i] <= box[2] && boxes[4 * i + 2] >= box[0] && boxes[4 * i + 1] <= box[3] && boxes[4 * i + 3] >= box[1];
  }
  const [left, top, width, height] = grid.box;
  function cell(share, count) { return Math.max(0, Math.min(count - 1, Math.floor(share * count))); }
  const x0 = cell((box[0] - left) / width, grid.columns);
  const x1 = cell((box[2] - left) / width, grid.columns);
  // Rows begin below.
  const y0 = cell((top + height - box[3]) / height, grid.rows);
  const y1 = cell((top + height - box[1]) / height, grid.rows);
  if ((x1 - x0 + 1) * (y1 - y0 + 1) * 4 > grid.columns * grid.rows) {
    for (let i = 0; i < picture.count; i += 1) { if (meets(i)) { found.push(i); } }
    return Uint32Array.from(found);
  }
  // Of a shape in several cells the first of them counts that is looked at.
  const isSeen = new Uint8Array(picture.count);
  function look(i) {
    if (isSeen[i] === 0 && meets(i)) { found.push(i); }
    isSeen[i] = 1;
  }
  grid.wide.forEach(look);
  for (let row = y0; row <= y1; row += 1) {
    const at = row * grid.columns;
    for (let k = grid.first[at + x0]; k < grid.first[at + x1 + 1]; k += 1) { look(grid.shapes[k]); }
  }
  return Uint32Array.from(found).sort();
}
