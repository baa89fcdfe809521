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
    const moves = {ArrowLeft: [-step, 0], ArrowRight: [step, 0], ArrowUp: [0, -step], ArrowDown: [0, step]};
    if (event.key === '+') { zoom(middle(), 0.8); }
    else if (event.key === '-') { zoom(middle(), 1.25); }
    else if (event.key === '0') { show(Object.assign({}, sheet)); }
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

  function findMark(text) {
    clear();
    const wanted = text.trim();
    if (wanted === '') { return; }
    const places = [];
    data.elements.forEach(function (element, place) {
      if (element[3] !== null && String(element[3]) === wanted) { places.push(place); }
    });
    mark(places);
    goTo(places);
    message.textContent = places.length === 0 ? 'No bar has the mark ' + wanted + '.' :
        places.length + (places.length === 1 ? ' element' : ' elements') + ' of mark ' + wanted + '.';
  }

  document.getElementById('search').addEventListener('submit', function (event) {
    event.preventDefault();
    findMark(document.getElementById('mark').value);
  });
  document.getElementById('clear').addEventListener('click', function () {
    document.getElementById('mark').value = '';
    clear();
    showElement(null);
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

  // The element at the pointer, or a little beside it: lines are thin.
  function elementAt(x, y) {
    for (let radius = 0; radius <= 5; radius += 1) {
      for (let turn = 0; turn < (radius === 0 ? 1 : 8); turn += 1) {
        const under = document.elementFromPoint(x + radius * Math.cos(turn * Math.PI / 4),
                                                y + radius * Math.sin(turn * Math.PI / 4));
        const shape = under && under.closest('[data-e]');
        if (shape && svg.contains(shape)) { return Number(shape.dataset.e); }
      }
    }
    return null;
  }

  view.addEventListener('click', function (event) {
    if (hasMoved) { return; }
    const place = elementAt(event.clientX, event.clientY);
    if (place === null) {
      clear();
      showElement(null);
    } else {
      select(place);
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
      row.addEventListener('click', function () {
        clear();
        row.classList.add('found');
        mark(bar.places);
        goTo(bar.places);
      });
    });
    add(bars, 'p', 'Total ' + data.mass + ' kg. ' + data.convention);
  }

  // --- address ---------------------------------------------------------------------------------

  // "#mark=5" and "#element=12" show these at once.
  const wanted = /^#(mark|element)=(.+)$/.exec(decodeURIComponent(location.hash));
  if (wanted && wanted[1] === 'mark') {
    document.getElementById('mark').value = wanted[2];
    findMark(wanted[2]);
  } else if (wanted && data.elements[Number(wanted[2])]) {
    select(Number(wanted[2]));
    goTo([Number(wanted[2])]);
  }
  document.documentElement.setAttribute('data-ready', 'true');
}());
