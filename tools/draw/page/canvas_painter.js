
// The colour as it is on dark paper: black and white change places, hues stay.
function onDarkPaper(color) {
  const rgb = [1, 3, 5].map(function (at) { return parseInt(color.slice(at, at + 2), 16) / 255; });
  // As the filters "invert(.93) hue-rotate(180deg)", which the pages with an SVG have.
  const [r, g, b] = rgb.map(function (one) { return 0.93 + one * (0.07 - 0.93); });
  const turned = [
    -0.574 * r + 1.43 * g + 0.144 * b, 0.426 * r + 0.43 * g + 0.144 * b, 0.426 * r + 1.43 * g - 0.856 * b
  ];
  return 'rgb(' + turned.map(function (one) { return Math.round(Math.max(0, Math.min(1, one)) * 255); }).join(',') + ')';
}

// Paints shapes of a picture on a canvas. "view" says where: {x, y, scale}, the place of the sheet at the upper
// left and pixels for a millimetre.
function canvasPainter(picture) {
  const fontNames = 'px Arial, Helvetica, "Liberation Sans", sans-serif';
  const step = picture.steps;
  const bodies = picture.bodies;

  // Adds the path of a shape to that of the canvas.
  function trace(context, view, i) {
    const scale = view.scale;
    const x = (picture.x[i] - view.x) * scale;
    const y = (picture.y[i] - view.y) * scale;
    if (picture.kinds[i] === 1) {
      const radius = picture.size[i] * scale;
      context.moveTo(x + radius, y);
      context.arc(x, y, radius, 0, 2 * Math.PI);
      return context.closePath();
    }
    const body = picture.of[i];
    const end = bodies.firstStep[body + 1];
    const numbers = bodies.numbers;
    let at = bodies.firstNumber[body];
    context.moveTo(x, y);
    for (let s = bodies.firstStep[body]; s < end; s += 1) {
      const kind = bodies.steps[s];
      if (kind === step.line || kind === step.move) {
        const toX = x + numbers[at] * scale;
        const toY = y + numbers[at + 1] * scale;
        if (kind === step.line) { context.lineTo(toX, toY); } else { context.moveTo(toX, toY); }
        at += 2;
      } else if (kind === step.close) {
        context.closePath();
      } else {
        context.arc(x + numbers[at] * scale, y + numbers[at + 1] * scale, numbers[at + 2] * scale,
                    numbers[at + 3], numbers[at + 4], kind === step.left);
        at += 7;
      }
    }
  }

  function prepareStroke(context, view, style, color, least) {
    context.strokeStyle = color;
    context.lineWidth = Math.max(style.width * view.scale, least);
    context.lineCap = style.dashes.length > 0 ? 'butt' : 'round';
    context.setLineDash(style.dashes.map(function (one) { return one * view.scale; }));
  }

  // A browser makes the letters of a text anew for every angle, which takes most of the time of a drawing that
  // has texts at any. Those that are too small to be read and come again are turned as bitmaps, made at twice
  // their size: they look the same.
  const stampUses = 4;      // the first are written
  const stampSize = 1.5;    // pixels: larger letters can be read, and are always written
  const stampFineness = 2;
  let stamps = new Map();
  let stampScale = 0;       // of the view that they are for

  function stampOf(context, text, size, color) {
    const measure = context.measureText(text);
    const left = Math.ceil(stampFineness * measure.actualBoundingBoxLeft) + 2;
    const up = Math.ceil(stampFineness * measure.actualBoundingBoxAscent) + 2;
    const bitmap = document.createElementNS('http://www.w3.org/1999/xhtml', 'canvas');
    bitmap.width = left + Math.ceil(stampFineness * measure.actualBoundingBoxRight) + 2;
    bitmap.height = up + Math.ceil(stampFineness * measure.actualBoundingBoxDescent) + 2;
    const letters = bitmap.getContext('2d', {willReadFrequently: true});
    letters.font = size * stampFineness + fontNames;
    letters.textAlign = context.textAlign;
    letters.direction = context.direction;
    letters.fillStyle = color;
    letters.fillText(text, left, up);
    return {bitmap: bitmap, left: left, up: up};
  }

  // Gives whether it has painted the text.
  function paintStamp(context, view, i, x, y, size, color) {
    const angle = picture.angle[i];
    // At right angles there is nothing to gain.
    if (size >= stampSize || Math.abs(Math.sin(2 * angle)) < 1e-3) { return false; }
    if (stampScale !== view.scale) {
      stamps = new Map();
      stampScale = view.scale;
    }
    const key = [picture.of[i], size, picture.align[i], color].join();
    const uses = stamps.get(key) || 0;
    if (typeof uses === 'number' && uses < stampUses) {
      stamps.set(key, uses + 1);
      return false;
    }
    const stamp = typeof uses === 'number' ? stampOf(context, picture.texts[picture.of[i]], size, color) : uses;
    stamps.set(key, stamp);
    const cos = Math.cos(angle) / stampFineness;
    const sin = Math.sin(angle) / stampFineness;
    context.imageSmoothingQuality = 'medium';
    context.setTransform(cos, sin, -sin, cos, x, y);
    context.drawImage(stamp.bitmap, -stamp.left, -stamp.up);
    context.setTransform(1, 0, 0, 1, 0, 0);
    return true;
  }

  // A browser has the texts of an SVG at whole 64ths of a pixel of the sheet, and lets the lines of those that
  // are level begin at whole pixels: without the one the other would come out differently.
  function textPlace(at, from, scale) { return Math.floor(at * scale * 64) / 64 - from * scale; }

  function paintText(context, view, i, style, ink) {
    const size = picture.size[i] * view.scale;
    if (!(size > 0)) { return; }
    context.font = size + fontNames;
    context.textAlign = ['left', 'center', 'right'][picture.align[i]];
    context.direction = picture.runsFromRight[picture.of[i]] ? 'rtl' : 'ltr';
    const text = picture.texts[picture.of[i]];
    const x = textPlace(picture.x[i], view.x, view.scale);
    const y = textPlace(picture.y[i], view.y, view.scale);
    const isTurned = picture.angle[i] !== 0;
    const color = ink.of(picture.style[i]);
    if (!style.isOnPaper && text !== '' && paintStamp(context, view, i, x, y, size, color)) { return; }
    if (isTurned) {
      context.setTransform(1, 0, 0, 1, x, y);
      context.rotate(picture.angle[i]);
    }
    const atX = isTurned ? 0 : x;
    const atY = isTurned ? 0 : y;
    if (style.isOnPaper) {
      context.setLineDash([]);
      context.strokeStyle = ink.paper;
      context.lineWidth = 0.3 * 0.716 * size;
      context.strokeText(text, atX, atY);
    }
    context.fillStyle = color;
    context.fillText(text, atX, atY);
    if (isTurned) { context.setTransform(1, 0, 0, 1, 0, 0); }
  }

  // Paints the shapes from one place in the list to another, as far as they are wanted. "ink" gives the
  // colour of a style, that of paper, and how many pixels lines have at least.
  function paint(context, view, shapes, from, to, isWanted, ink) {
    let ready = -1;  // the style that strokes are prepared for
    context.lineJoin = 'round';
    context.textBaseline = 'alphabetic';
    let isCut = false;
    function cut(isWanted) {
      if (isCut === isWanted) { return; }
      isCut = isWanted;
      ready = -1;
      if (!isCut) { return context.restore(); }
      const [x, y, width, height] = picture.window;
      context.save();
      context.beginPath();
      context.rect((x - view.x) * view.scale, (y - view.y) * view.scale, width * view.scale, height * view.scale);
      context.clip();
    }
    for (let k = from; k < to; k += 1) {
      const i = shapes[k];
      if (!isWanted(i)) { continue; }
      if (picture.window) { cut(picture.layerNames[picture.layers[i]] !== 'title'); }
      const number = picture.style[i];
      const style = picture.styles[number];
      if (picture.kinds[i] === 2) {
        paintText(context, view, i, style, ink);
        ready = -1;
        continue;
      }
      context.beginPath();
      trace(context, view, i);
      if (style.isFilled || style.isOnPaper) {
        context.fillStyle = style.isFilled ? ink.of(number) : ink.paper;
        context.fill();
      }
      if (style.width > 0) {
        if (ready !== number) { prepareStroke(context, view, style, ink.of(number), ink.least); }
        ready = number;
        context.stroke();
      }
    }
    cut(false);
  }

  return {paint: paint, trace: trace};
}
