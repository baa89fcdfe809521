
// The drawing on a canvas: the same as an SVG of it shows, for drawings of so many shapes that a document of
// them would stumble. What is seen is a bitmap, painted anew in small portions whenever the view has changed;
// until then the old one is shown where it belongs now.
function canvasSurface(canvas, moving, picture) {
  const context = canvas.getContext('2d', {alpha: false});
  const painter = canvasPainter(picture);
  const touch = canvasTouch(picture);
  const portionFirst = 120; // milliseconds of painting in a frame, before there is a picture
  const portion = 25;       // and in one that stands still
  const portionMoving = 3;  // and in one that moves
  const atOnce = 8;         // milliseconds: what takes no longer is painted anew in each frame
  const foundColor = '#ff8a00';
  const dark = window.matchMedia('(prefers-color-scheme: dark)');
  const all = new Uint32Array(picture.count).map(function (_, i) { return i; });
  const isLayerOff = picture.layerNames.map(function () { return false; });
  let isHiddenOff = false;
  let isPrinting = false;

  // --- shapes of elements ----------------------------------------------------------------------

  const most = picture.element.reduce(function (a, b) { return Math.max(a, b); }, -1) + 1;
  const first = new Uint32Array(most + 1);
  const ofElement = new Uint32Array(picture.count);
  picture.element.forEach(function (place) { if (place >= 0) { first[place + 1] += 1; } });
  for (let place = 0; place < most; place += 1) { first[place + 1] += first[place]; }
  const filled = first.slice();
  picture.element.forEach(function (place, i) {
    if (place >= 0) {
      ofElement[filled[place]] = i;
      filled[place] += 1;
    }
  });

  function shapesOf(places) {
    const shapes = [];
    places.forEach(function (place) {
      if (!(place < most)) { return; }
      for (let k = first[place]; k < first[place + 1]; k += 1) { shapes.push(ofElement[k]); }
    });
    return Uint32Array.from(shapes).sort();
  }

  function boundsOf(places) {
    return shapesOf(places).reduce(function (around, i) {
      // A text may be shorter than its box.
      const box = picture.kinds[i] === 2 ? [picture.x[i], picture.y[i], picture.x[i], picture.y[i]]
          : picture.boxes.subarray(4 * i, 4 * i + 4);
      return around ? [Math.min(around[0], box[0]), Math.min(around[1], box[1]),
                       Math.max(around[2], box[2]), Math.max(around[3], box[3])] : Array.from(box);
    }, null);
  }

  function isShown(i) { return !isLayerOff[picture.layers[i]] && !(isHiddenOff && picture.hidden[i]); }

  // --- colours ---------------------------------------------------------------------------------

  function inkFor(isDark) {
    const colors = picture.styles.map(function (style) { return isDark ? onDarkPaper(style.color) : style.color; });
    return {paper: isDark ? onDarkPaper('#ffffff') : '#ffffff', of: function (style) { return colors[style]; }, least: 0};
  }
  const light = inkFor(false);
  const onDark = inkFor(true);
  function ink() { return dark.matches && !isPrinting ? onDark : light; }
  // What is found shows from afar; the gaps between the dashes of a hidden bar stay paper.
  function foundInk() {
    const paper = ink().paper;
    return {paper, of: function (style) { return picture.styles[style].color === '#ffffff' ? paper : foundColor; }, least: 2};
  }

  // --- plates ----------------------------------------------------------------------------------

  // That of the SVG over the canvas, so that both agree to the last digit.
  function viewNow() {
    const ratio = canvas.width / (canvas.clientWidth || 1);
    const edges = canvas.getBoundingClientRect();
    const matrix = moving.matrix();
    return {x: (edges.left - matrix.e) / matrix.a, y: (edges.top - matrix.f) / matrix.d, scale: matrix.a * ratio};
  }

  // A bitmap of shapes as they were seen from one view, and the next one that is being painted.
  function newPlate(inkNow, isOpaque) {
    let ready = null;
    let next = null;
    let spare = null;
    let cost = 0.01;  // milliseconds for a shape, as they were of late

    function begin(view, shapes) {
      const used = next || spare;
      const isFit = used && used.canvas.width === canvas.width && used.canvas.height === canvas.height;
      const target = isFit ? used : newTarget();
      if (isOpaque) { paintPaper(target, view); } else { target.clearRect(0, 0, canvas.width, canvas.height); }
      spare = null;
      next = Object.assign(target, {view: view, shapes: shapes, at: 0, ink: inkNow()});
    }

    function newTarget() {
      const plate = document.createElementNS('http://www.w3.org/1999/xhtml', 'canvas');
      plate.width = canvas.width;
      plate.height = canvas.height;
      return plate.getContext('2d', {alpha: !isOpaque, willReadFrequently: true});
    }

    // Paints until the time is over; gives whether there is more to paint. Each piece ends with a look at the
    // bitmap, so that what is only noted down until then takes its time within it.
    function goOn(time) {
      const end = performance.now() + time;
      let now = performance.now();
      while (next && next.at < next.shapes.length && now < end) {
        const to = Math.min(next.shapes.length, next.at + Math.max(1, Math.floor((end - now) / cost)));
        painter.paint(next, next.view, next.shapes, next.at, to, isShown, next.ink);
        next.getImageData(0, 0, 1, 1);
        const after = performance.now();
        cost = 0.5 * cost + 0.5 * Math.max(after - now, 0.05) / (to - next.at);
        now = after;
        next.at = to;
      }
      if (next && next.at >= next.shapes.length) {
        spare = ready;
        ready = next;
        next = null;
      }
      return next !== null;
    }

    function show(view) {
      // While nothing else is there, what has been painted of the first.
      const shown = ready || next;
      if (!shown) { return; }
      const scale = view.scale / shown.view.scale;
      const isSharp = Math.abs(scale - 1) < 1e-9;
      context.imageSmoothingEnabled = !isSharp;
      const x = (shown.view.x - view.x) * view.scale;
      const y = (shown.view.y - view.y) * view.scale;
      context.drawImage(shown.canvas, isSharp ? Math.round(x) : x, isSharp ? Math.round(y) : y,
                        shown.canvas.width * scale, shown.canvas.height * scale);
    }

    return {
      begin: begin,
      goOn: goOn,
      show: show,
      isReady: function () { return ready !== null; },
      takes: function (shapes) { return cost * shapes.length; },
      // The view that it is or will be of.
      view: function () { return (next || ready || {}).view; }
    };
  }

  function paintPaper(target, view) {
    target.fillStyle = getComputedStyle(document.body).backgroundColor;
    target.fillRect(0, 0, target.canvas.width, target.canvas.height);
    target.fillStyle = ink().paper;
    target.fillRect(-view.x * view.scale, -view.y * view.scale, picture.width * view.scale, picture.height * view.scale);
  }

  const sheet = newPlate(ink, true);
  const found = newPlate(foundInk, false);
  let foundShapes = new Uint32Array(0);

  // --- frames ----------------------------------------------------------------------------------

  let isAsked = false;
  let isStale = true;        // other shapes are shown, or in other colours
  let isFoundStale = true;
  let before = null;         // the view of the frame before

  function ask() {
    if (!isAsked) {
      isAsked = true;
      requestAnimationFrame(frame);
    }
  }

  function visibleShapes(view) {
    const box = [view.x, view.y, view.x + canvas.width / view.scale, view.y + canvas.height / view.scale];
    return shapesWithin(picture, box);
  }

  function paintAll(view) {
    paintPaper(context, view);
    painter.paint(context, view, all, 0, all.length, isShown, ink());
    painter.paint(context, view, foundShapes, 0, foundShapes.length, isShown, foundInk());
  }

  function isSame(a, b) { return Boolean(a && b) && a.x === b.x && a.y === b.y && a.scale === b.scale; }

  // Few shapes are painted anew in each frame; of many a new bitmap is begun when the view stands still, while
  // the old one moves with it.
  function frame() {
    isAsked = false;
    fit();
    const view = viewNow();
    const shapes = visibleShapes(view);
    const isMoving = !isSame(view, before);
    before = view;
    const isQuick = sheet.takes(shapes) + found.takes(foundShapes) < atOnce;
    if (isStale || !sheet.view() || ((isQuick || !isMoving) && !isSame(view, sheet.view()))) { sheet.begin(view, shapes); }
    if (isFoundStale || ((isQuick || !isMoving) && !isSame(view, found.view()))) { found.begin(view, foundShapes); }
    isStale = isFoundStale = false;
    const time = !sheet.isReady() ? portionFirst : isQuick || !isMoving ? portion : portionMoving;
    const isMore = [found.goOn(time), sheet.goOn(time)].some(Boolean) || isMoving;
    paintPaper(context, view);
    sheet.show(view);
    found.show(view);
    canvas.dataset.painted = String(!isMore);
    if (isMore) { ask(); }
  }

  function fit() {
    const ratio = window.devicePixelRatio || 1;
    const width = Math.max(1, Math.round(canvas.clientWidth * ratio));
    const height = Math.max(1, Math.round(canvas.clientHeight * ratio));
    if (canvas.width !== width || canvas.height !== height) {
      canvas.width = width;
      canvas.height = height;
      isStale = true;
    }
  }

  function repaint() {
    isStale = isFoundStale = true;
    ask();
  }

  moving.onShow(ask);
  new ResizeObserver(repaint).observe(canvas);
  dark.addEventListener('change', repaint);

  // Printed, the sheet is painted as a whole, as fine as a canvas may be.
  window.addEventListener('beforeprint', function () {
    const fineness = Math.min(200 / 25.4, 12000 / Math.max(picture.width, picture.height));
    isPrinting = true;
    canvas.width = Math.ceil(picture.width * fineness);
    canvas.height = Math.ceil(picture.height * fineness);
    paintAll({x: 0, y: 0, scale: fineness});
  });
  window.addEventListener('afterprint', function () {
    isPrinting = false;
    repaint();
  });

  ask();

  return {
    layers: picture.layerNames,
    hasHidden: picture.hidden.includes(1),
    places: Array.from(first.keys()).filter(function (place) { return place < most && first[place + 1] > first[place]; }),
    boundsOf: boundsOf,
    clear: function () {
      foundShapes = new Uint32Array(0);
      isFoundStale = true;
      ask();
    },
    mark: function (places) {
      foundShapes = shapesOf(places);
      isFoundStale = true;
      ask();
    },
    elementsAt: function (x, y) {
      return touch.elementsAt(moving.toSheet({clientX: x, clientY: y}), 5 * moving.grain(), isShown);
    },
    nearestEnd: function (point, reach) { return touch.nearestEnd(point, reach, isShown); },
    switchLayer: function (name, isOff) {
      isLayerOff[picture.layerNames.indexOf(name)] = isOff;
      repaint();
    },
    switchHidden: function (isOff) {
      isHiddenOff = isOff;
      repaint();
    }
  };
}
