(function () {
  const view = document.getElementById('view');
  const svg = view.querySelector('svg');
  const data = JSON.parse(document.getElementById('data').textContent);
  const message = document.getElementById('message');
  const moving = movingAbout(view, svg);

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

  function goTo(places) {
    moving.showShapes(places.flatMap(function (place) { return shapesOf.get(place) || []; }));
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
    if (moving.hasMoved()) { return; }
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
