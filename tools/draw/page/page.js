'use strict';
(function () {
  const view = document.getElementById('view');
  const svg = view.querySelector('svg');
  const data = JSON.parse(document.getElementById('data').textContent);
  const message = document.getElementById('message');
  const whole = svg.viewBox.baseVal;
  const sheet = {x: whole.x, y: whole.y, width: whole.width, height: whole.height};
  let box = Object.assign({}, sheet);

  // --- moving about ----------------------------------------------------------------------------

  function show(next) {
    box = next;
    svg.setAttribute('viewBox', [box.x, box.y, box.width, box.height].join(' '));
  }

  // Millimetres of the sheet for one pixel.
  function grain() {
    return Math.max(box.width / view.clientWidth, box.height / view.clientHeight);
  }

  function toSheet(event) {
    const matrix = svg.getScreenCTM().inverse();
    return {x: event.clientX * matrix.a + matrix.e, y: event.clientY * matrix.d + matrix.f};
  }

  function zoom(point, factor) {
    const width = box.width * factor;
    if (width > sheet.width * 4 || width < sheet.width / 5000) { return; }
    show({
      x: point.x - (point.x - box.x) * factor,
      y: point.y - (point.y - box.y) * factor,
      width: width,
      height: box.height * factor
    });
  }

  function middle() {
    return {x: box.x + box.width / 2, y: box.y + box.height / 2};
  }

  view.addEventListener('wheel', function (event) {
    event.preventDefault();
    zoom(toSheet(event), Math.exp(event.deltaY * (event.deltaMode === 1 ? 0.05 : 0.0015)));
  }, {passive: false});

  const pointers = new Map();
  let hasMoved = false;

  view.addEventListener('pointerdown', function (event) {
    pointers.set(event.pointerId, event);
    hasMoved = false;
  });
  view.addEventListener('pointermove', function (event) {
    const before = pointers.get(event.pointerId);
    if (!before) { return; }
    const dx = event.clientX - before.clientX;
    const dy = event.clientY - before.clientY;
    if (!hasMoved && Math.hypot(dx, dy) < 3) { return; }
    hasMoved = true;
    view.setPointerCapture(event.pointerId);
    view.classList.add('dragging');
    if (pointers.size === 2) {
      const other = Array.from(pointers.values()).find(function (one) {
        return one.pointerId !== event.pointerId;
      });
      const old = Math.hypot(before.clientX - other.clientX, before.clientY - other.clientY);
      const now = Math.hypot(event.clientX - other.clientX, event.clientY - other.clientY);
      if (old > 0 && now > 0) { zoom(toSheet(other), old / now); }
    } else {
      show(Object.assign({}, box, {x: box.x - dx * grain(), y: box.y - dy * grain()}));
    }
    pointers.set(event.pointerId, event);
  });
  function release(event) {
    pointers.delete(event.pointerId);
    view.classList.remove('dragging');
  }
  view.addEventListener('pointerup', release);
  view.addEventListener('pointercancel', release);

  view.addEventListener('keydown', function (event) {
    const step = 0.1;
    if (event.ctrlKey || event.altKey || event.metaKey) { return; }
    const moves = {ArrowLeft: [-step, 0], ArrowRight: [step, 0], ArrowUp: [0, -step], ArrowDown: [0, step]};
    if (event.key === '+') { zoom(middle(), 0.8); }
    else if (event.key === '-') { zoom(middle(), 1.25); }
    else if (event.key === '0') { show(Object.assign({}, sheet)); }
    else if (event.key === 'm' || event.key === 'M') { setMeasuring(!isMeasuring); }
    else if (event.key === 'Escape') { setMeasuring(false); clear(); showElement(null); }
    else if (event.key === 'n') { step(1); }
    else if (event.key === 'p') { step(-1); }
    else if (event.key === 'Enter') {
      const edges = view.getBoundingClientRect();
      const x = edges.left + edges.width / 2;
      const y = edges.top + edges.height / 2;
      if (isMeasuring) { addMeasured(snapped(x, y)); } else { choose(x, y); }
    }
    else if (moves[event.key]) {
      show(Object.assign({}, box, {
        x: box.x + box.width * moves[event.key][0],
        y: box.y + box.height * moves[event.key][1]
      }));
    } else { return; }
    event.preventDefault();
  });
  document.getElementById('whole').addEventListener('click', function () {
    show(Object.assign({}, sheet));
  });

  // --- what is found ---------------------------------------------------------------------------

  const shapesOf = new Map();
  svg.querySelectorAll('[data-e]').forEach(function (shape) {
    const place = Number(shape.dataset.e);
    if (!shapesOf.has(place)) { shapesOf.set(place, []); }
    shapesOf.get(place).push(shape);
  });

  // What is found lies on top as well, where no other bar covers it.
  const above = document.createElementNS('http://www.w3.org/2000/svg', 'g');
  svg.appendChild(above);

  function clear() {
    while (above.firstChild) { above.removeChild(above.firstChild); }
    document.querySelectorAll('.found').forEach(function (one) {
      one.classList.remove('found', 'filled');
    });
    message.textContent = '';
  }

  function mark(places) {
    places.forEach(function (place) {
      (shapesOf.get(place) || []).forEach(function (shape) {
        if (getComputedStyle(shape).stroke === 'none') { shape.classList.add('filled'); }
        shape.classList.add('found');
        const copy = shape.cloneNode(true);
        const layer = shape.closest('g[data-layer]');
        copy.removeAttribute('data-e');
        copy.setAttribute('data-of', layer.dataset.layer);
        copy.setAttribute('pointer-events', 'none');
        if (layer.classList.contains('off')) { copy.classList.add('off'); }
        above.appendChild(copy);
      });
    });
  }

  // Shows the shapes of the elements with some room around them.
  function goTo(places) {
    let around = null;
    places.forEach(function (place) {
      (shapesOf.get(place) || []).forEach(function (shape) {
        const one = shape.getBBox();
        const edges = [one.x, one.y, one.x + one.width, one.y + one.height];
        around = around ? [Math.min(around[0], edges[0]), Math.min(around[1], edges[1]),
                           Math.max(around[2], edges[2]), Math.max(around[3], edges[3])] : edges;
      });
    });
    if (!around) { return; }
    const width = Math.max(around[2] - around[0], sheet.width / 20) * 1.4;
    const height = Math.max(around[3] - around[1], sheet.height / 20) * 1.4;
    show({x: (around[0] + around[2] - width) / 2, y: (around[1] + around[3] - height) / 2,
          width: width, height: height});
  }

  function places(isWanted) {
    const found = [];
    data.elements.forEach(function (element, place) {
      if (isWanted(element)) { found.push(place); }
    });
    return found;
  }

  function contentsOf(element) {
    const row = element[0] === 'CKtZantoText' &&
        element[4].find(function (one) { return one[0] === 'Contents'; });
    return row ? String(row[1]) : '';
  }

  function count(number, one, more) { return number + ' ' + (number === 1 ? one : more); }

  // Marks first; what is no mark is looked for in the texts.
  function find(text) {
    clear();
    const wanted = text.trim();
    if (wanted === '') { return; }
    let found = places(function (element) {
      return element[3] !== null && String(element[3]) === wanted;
    });
    const isMark = found.length > 0;
    if (!isMark) {
      const lower = wanted.toLowerCase();
      found = places(function (element) { return contentsOf(element).toLowerCase().includes(lower); });
    }
    mark(found);
    goTo(found);
    message.textContent = isMark ? count(found.length, 'element', 'elements') + ' of mark ' + wanted + '.'
        : found.length > 0 ? count(found.length, 'text', 'texts') + ' with \u201C' + wanted + '\u201D.'
        : /^-?[0-9]+$/.test(wanted) ? 'No bar has the mark ' + wanted + '.'
        : 'No text has \u201C' + wanted + '\u201D.';
  }

  document.getElementById('search').addEventListener('submit', function (event) {
    event.preventDefault();
    find(document.getElementById('mark').value);
  });
  document.getElementById('clear').addEventListener('click', function () {
    document.getElementById('mark').value = '';
    clear();
    showElement(null);
    measured = [];
    drawMeasure(null);
  });

  // --- one element -----------------------------------------------------------------------------

  function add(parent, name, text, className) {
    const node = document.createElementNS('http://www.w3.org/1999/xhtml', name);
    if (text !== undefined) { node.textContent = text; }
    if (className) { node.className = className; }
    parent.appendChild(node);
    return node;
  }

  function showElement(place) {
    const section = document.getElementById('element');
    while (section.children.length > 1) { section.removeChild(section.lastChild); }
    if (place === null) {
      add(section, 'p', 'Click on an element of the drawing.', 'hint');
      return;
    }
    const element = data.elements[place];
    add(section, 'p', element[2]);
    const table = add(section, 'table');
    const rows = [['class', element[0]], ['index', element[1]]].concat(element[4]);
    rows.forEach(function (row) {
      const line = add(table, 'tr');
      add(line, 'th', row[0]);
      add(line, 'td', row[1]);
    });
  }

  function select(place) {
    clear();
    mark([place]);
    showElement(place);
  }

  // The elements at the pointer, or a little beside it: lines are thin. The uppermost first.
  function elementsAt(x, y) {
    const found = [];
    for (let radius = 0; radius <= 5; radius += 1) {
      for (let turn = 0; turn < (radius === 0 ? 1 : 8); turn += 1) {
        document.elementsFromPoint(x + radius * Math.cos(turn * Math.PI / 4),
                                   y + radius * Math.sin(turn * Math.PI / 4)).forEach(function (under) {
          const shape = under.closest('[data-e]');
          const place = shape && svg.contains(shape) ? Number(shape.dataset.e) : null;
          if (place !== null && !found.includes(place)) { found.push(place); }
        });
      }
      if (found.length > 0 && radius >= 1) { break; }
    }
    return found;
  }

  // Clicking again at the same place goes through the elements that lie on each other.
  let chosen = {x: -1, y: -1, places: [], at: 0};
  let current = null;

  function choose(x, y) {
    const isSame = Math.hypot(x - chosen.x, y - chosen.y) < 3 && chosen.places.length > 1;
    chosen = isSame ? Object.assign(chosen, {at: (chosen.at + 1) % chosen.places.length})
        : {x: x, y: y, places: elementsAt(x, y), at: 0};
    if (chosen.places.length === 0) {
      current = null;
      clear();
      showElement(null);
      return;
    }
    current = chosen.places[chosen.at];
    select(current);
    if (chosen.places.length > 1) {
      message.textContent = (chosen.at + 1) + ' of ' + chosen.places.length +
          ' that lie here; click again for the next.';
    }
  }

  // The next element that is drawn, or the one before.
  function step(by) {
    const drawn = Array.from(shapesOf.keys()).sort(function (a, b) { return a - b; });
    if (drawn.length === 0) { return; }
    const at = drawn.indexOf(current);
    current = drawn[at < 0 ? (by > 0 ? 0 : drawn.length - 1) : (at + by + drawn.length) % drawn.length];
    select(current);
    goTo([current]);
  }

  view.addEventListener('click', function (event) {
    if (hasMoved) { return; }
    if (isMeasuring) {
      addMeasured(snapped(event.clientX, event.clientY));
    } else {
      choose(event.clientX, event.clientY);
    }
  });

  // --- measuring -------------------------------------------------------------------------------

  const kSnap = 10;  // pixels
  const tape = document.createElementNS('http://www.w3.org/2000/svg', 'g');
  tape.setAttribute('id', 'tape');
  tape.setAttribute('pointer-events', 'none');
  svg.appendChild(tape);
  const measureButton = document.getElementById('measure');
  let isMeasuring = false;
  let measured = [];

  // The ends and corners of what is drawn: absolute coordinates of the paths, centres of circles.
  const ends = [];
  svg.querySelectorAll('path[data-e], circle[data-e]').forEach(function (shape) {
    if (shape.tagName === 'circle') {
      ends.push({x: Number(shape.getAttribute('cx')), y: Number(shape.getAttribute('cy'))});
      return;
    }
    (shape.getAttribute('d').match(/[MLA][^MLAZ]*/g) || []).forEach(function (part) {
      const numbers = part.slice(1).trim().split(/[ ,]+/).map(Number);
      ends.push({x: numbers[numbers.length - 2], y: numbers[numbers.length - 1]});
    });
  });

  function snapped(clientX, clientY) {
    const point = toSheet({clientX: clientX, clientY: clientY});
    let best = point;
    let least = kSnap * grain();
    ends.forEach(function (end) {
      const away = Math.hypot(end.x - point.x, end.y - point.y);
      if (away < least) { least = away; best = end; }
    });
    return best;
  }

  function lengthText(points) {
    let length = 0;
    points.forEach(function (point, i) {
      if (i > 0) { length += Math.hypot(point.x - points[i - 1].x, point.y - points[i - 1].y); }
    });
    const value = length * data.unitsPerMillimetre;
    return Number(value.toPrecision(7)).toFixed(data.decimals) + ' ' + data.unit;
  }

  function drawMeasure(next) {
    while (tape.firstChild) { tape.removeChild(tape.firstChild); }
    const points = next ? measured.concat([next]) : measured;
    if (points.length === 0) { return; }
    const line = document.createElementNS('http://www.w3.org/2000/svg', 'polyline');
    line.setAttribute('points', points.map(function (point) { return point.x + ',' + point.y; }).join(' '));
    line.setAttribute('stroke-width', 2 * grain());
    tape.appendChild(line);
    points.forEach(function (point) {
      const dot = document.createElementNS('http://www.w3.org/2000/svg', 'circle');
      dot.setAttribute('cx', point.x);
      dot.setAttribute('cy', point.y);
      dot.setAttribute('r', 4 * grain());
      tape.appendChild(dot);
    });
    if (points.length > 1) { message.textContent = 'Length ' + lengthText(points); }
  }

  function addMeasured(point) {
    measured.push(point);
    drawMeasure(null);
    if (measured.length === 1) { message.textContent = 'First point; go on to the next.'; }
  }

  function setMeasuring(isOn) {
    isMeasuring = isOn;
    measured = [];
    drawMeasure(null);
    measureButton.setAttribute('aria-pressed', String(isOn));
    view.classList.toggle('measuring', isOn);
    message.textContent = isOn ? 'Click on points, or press Enter for the middle of the view; ' +
        'M or Escape ends.' : '';
  }
  measureButton.addEventListener('click', function () { setMeasuring(!isMeasuring); });
  view.addEventListener('pointermove', function (event) {
    if (isMeasuring && measured.length > 0 && pointers.size === 0) {
      drawMeasure(snapped(event.clientX, event.clientY));
    }
  });

  // --- layers ----------------------------------------------------------------------------------

  const layers = document.getElementById('layers');

  function addSwitch(name, toggle) {
    const label = add(layers, 'label');
    const input = add(label, 'input');
    input.type = 'checkbox';
    input.checked = true;
    input.name = name;
    label.appendChild(document.createTextNode(' ' + name));
    input.addEventListener('change', function () { toggle(!input.checked); });
  }

  svg.querySelectorAll('g[data-layer]').forEach(function (group) {
    addSwitch(group.dataset.layer, function (isOff) {
      group.classList.toggle('off', isOff);
      above.querySelectorAll('[data-of="' + group.dataset.layer + '"]').forEach(function (copy) {
        copy.classList.toggle('off', isOff);
      });
    });
  });
  if (svg.querySelector('.hidden-bar')) {
    addSwitch('hidden bars', function (isOff) {
      svg.querySelectorAll('.hidden-bar').forEach(function (shape) {
        shape.classList.toggle('off', isOff);
      });
    });
  }

  // --- bar list --------------------------------------------------------------------------------

  const bars = document.getElementById('bars');
  if (data.bars.length === 0) {
    add(bars, 'p', 'No bars.');
  } else {
    const table = add(bars, 'table');
    const head = add(add(table, 'thead'), 'tr');
    ['mark', '\u00D8', 'shape', 'number', 'length', 'kg'].forEach(function (title, column) {
      add(head, 'th', title, column === 2 ? '' : 'number');
    });
    const body = add(table, 'tbody');
    data.bars.forEach(function (bar) {
      const row = add(body, 'tr');
      row.title = bar.grade;
      add(row, 'td', bar.mark, 'number');
      add(row, 'td', bar.diameter, 'number');
      add(row, 'td', bar.shape);
      add(row, 'td', bar.number, 'number');
      add(row, 'td', bar.length, 'number');
      add(row, 'td', bar.mass, 'number');
      row.tabIndex = 0;
      function showRow() {
        clear();
        row.classList.add('found');
        mark(bar.places);
        goTo(bar.places);
      }
      row.addEventListener('click', showRow);
      row.addEventListener('keydown', function (event) {
        if (event.key === 'Enter' || event.key === ' ') {
          event.preventDefault();
          showRow();
        }
      });
    });
    add(bars, 'p', 'Total ' + data.mass + ' kg. ' + data.convention);
    addSums();
    addListButtons();
  }

  function addSums() {
    add(bars, 'h3', 'Sums by diameter');
    const table = add(bars, 'table');
    table.id = 'sums';
    const head = add(add(table, 'thead'), 'tr');
    ['\u00D8', 'number', 'kg'].forEach(function (title) { add(head, 'th', title, 'number'); });
    const body = add(table, 'tbody');
    const sums = new Map();
    data.bars.forEach(function (bar) {
      const sum = sums.get(bar.diameter) || {number: 0, mass: 0};
      sum.number += bar.number;
      sum.mass += Number(bar.mass) || 0;
      sums.set(bar.diameter, sum);
    });
    Array.from(sums.keys()).sort(function (a, b) { return Number(a) - Number(b); }).forEach(function (key) {
      const row = add(body, 'tr');
      [key, sums.get(key).number, sums.get(key).mass.toFixed(2)].forEach(function (value) {
        add(row, 'td', value, 'number');
      });
    });
  }

  function listAsCsv() {
    const keys = ['mark', 'diameter', 'grade', 'shape', 'number', 'length', 'mass'];
    const field = function (value) {
      const text = String(value);
      return /[",\n\r]/.test(text) ? '"' + text.replace(/"/g, '""') + '"' : text;
    };
    return [keys].concat(data.bars.map(function (bar) {
      return keys.map(function (key) { return bar[key]; });
    })).map(function (row) { return row.map(field).join(',') + '\r\n'; }).join('');
  }

  function addListButtons() {
    const line = add(bars, 'p', '', 'buttons');
    const copy = add(line, 'button', 'Copy list');
    copy.id = 'copy';
    copy.addEventListener('click', function () {
      const isDone = function () { message.textContent = 'The bar list is on the clipboard.'; };
      if (navigator.clipboard) {
        navigator.clipboard.writeText(listAsCsv()).then(isDone, copyBySelection);
      } else {
        copyBySelection();
      }
    });
    const save = add(line, 'button', 'Save as CSV');
    save.id = 'save';
    save.addEventListener('click', function () {
      const link = add(line, 'a');
      link.setAttribute('href', URL.createObjectURL(new Blob(['\uFEFF' + listAsCsv()], {type: 'text/csv'})));
      link.setAttribute('download', document.title.replace(/[\\/:*?"<>|]/g, '_') + '.csv');
      link.click();
      line.removeChild(link);
    });
  }

  // Where the page may not use the clipboard itself, as in a file that is opened.
  function copyBySelection() {
    const area = add(bars, 'textarea', listAsCsv());
    area.select();
    const isDone = document.execCommand('copy');
    bars.removeChild(area);
    message.textContent = isDone ? 'The bar list is on the clipboard.' : 'The clipboard is closed.';
  }

  // --- panel and printing ----------------------------------------------------------------------

  const fold = document.getElementById('fold');
  fold.addEventListener('click', function () {
    const isFolded = document.body.classList.toggle('folded');
    fold.setAttribute('aria-expanded', String(!isFolded));
    fold.textContent = isFolded ? 'Show panel' : 'Hide panel';
  });

  // Printed, the sheet has its own size, so that its scale holds.
  const paper = add(document.head, 'style', '@media print { @page { size: ' + sheet.width + 'mm ' +
      sheet.height + 'mm; margin: 0; } main, main svg { width: ' + sheet.width + 'mm !important; height: ' +
      sheet.height + 'mm !important; } }');
  paper.id = 'print';
  let boxBefore = null;
  window.addEventListener('beforeprint', function () {
    boxBefore = box;
    show(Object.assign({}, sheet));
  });
  window.addEventListener('afterprint', function () {
    if (boxBefore) { show(boxBefore); }
    boxBefore = null;
  });

  // --- address ---------------------------------------------------------------------------------

  // "#mark=5", "#text=coupe" and "#element=12" show these; any other address does nothing.
  function goToAddress() {
    const wanted = /^#(mark|text|element)=(.+)$/.exec(location.hash);
    let value = '';
    try {
      value = wanted ? decodeURIComponent(wanted[2]) : '';
    } catch (error) {
      return;
    }
    if (value === '') { return; }
    if (wanted[1] !== 'element') {
      document.getElementById('mark').value = value;
      find(value);
    } else if (/^[0-9]+$/.test(value) && data.elements[Number(value)]) {
      current = Number(value);
      select(current);
      goTo([current]);
    }
  }
  window.addEventListener('hashchange', goToAddress);
  goToAddress();
  document.documentElement.setAttribute('data-ready', 'true');
}());
