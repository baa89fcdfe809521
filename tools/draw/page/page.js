(function () {
  const view = document.getElementById('view');
  const svg = view.querySelector('svg');
  const data = JSON.parse(document.getElementById('data').textContent);
  const moving = movingAbout(view, svg);
  const elements = elementRows(data.classes, document.getElementById('rows').textContent);
  const canvas = view.querySelector('canvas');
  const surface = canvas ? canvasSurface(canvas, moving,
      unpackedPicture(JSON.parse(document.getElementById('picture').textContent))) : svgSurface(svg);
  const tape = measuring(view, svg, moving, surface, data.unit);
  const input = document.getElementById('mark');

  // --- what stands out -------------------------------------------------------------------------

  let current = null;  // the place of the element whose items are shown

  function clear() {
    surface.clear();
    document.querySelectorAll('#bars .found').forEach(function (row) { row.classList.remove('found'); });
    say('');
    current = null;
    showElement(null);
  }

  function goTo(places) { moving.showBounds(surface.boundsOf(places)); }

  function showElement(place) {
    const section = document.getElementById('element');
    while (section.children.length > 1) { section.removeChild(section.lastChild); }
    if (place === null) {
      add(section, 'p', 'Click on an element of the drawing.', 'hint');
      return;
    }
    const element = elements.element(place);
    add(section, 'p', element.description);
    const table = add(section, 'table');
    [['class', element.name], ['index', element.index]].concat(element.items).forEach(function (item) {
      const row = add(table, 'tr');
      add(row, 'th', item[0]);
      add(row, 'td', item[1]);
    });
  }

  function select(place) {
    clear();
    current = place;
    surface.mark([place]);
    showElement(place);
  }

  // --- search ----------------------------------------------------------------------------------

  const marks = placesByMark(data.marks);

  function counted(number, name) { return number + ' ' + name + (number === 1 ? '' : 's'); }

  // What was found last; asked for again, its elements are shown one by one.
  let search = {wanted: '', places: [], at: -1, told: ''};

  function find(text) {
    const wanted = text.trim();
    if (wanted !== '' && wanted === search.wanted && search.places.length > 1) {
      return goOn();
    }
    clear();
    search = {wanted: wanted, places: [], at: -1, told: ''};
    if (wanted === '') { return; }
    // What is no mark, or stands in quotation marks, is looked for in the texts.
    const quoted = /^"(.+?)"?$/.exec(wanted);
    const isMark = !quoted && marks.has(wanted);
    const words = quoted ? quoted[1] : wanted;
    search.places = isMark ? marks.get(wanted) : elements.withText(words);
    search.told = isMark ? counted(search.places.length, 'element') + ' of mark ' + wanted + '.'
        : search.places.length > 0 ? counted(search.places.length, 'text') + ' with \u201C' + words + '\u201D.'
        : !quoted && /^-?[0-9]+$/.test(wanted) ? 'No bar has the mark ' + wanted + '.'
        : 'No text has \u201C' + words + '\u201D.';
    surface.mark(search.places);
    goTo(search.places);
    say(search.told);
  }

  function goOn() {
    const at = (search.at + 1) % search.places.length;
    select(search.places[at]);
    goTo([search.places[at]]);
    search.at = at;
    say(search.told + ' This is number ' + (at + 1) + '.');
  }

  document.getElementById('search').addEventListener('submit', function (event) {
    event.preventDefault();
    find(input.value);
  });
  document.getElementById('clear').addEventListener('click', function () {
    input.value = '';
    search = {wanted: '', places: [], at: -1, told: ''};
    clear();
  });

  // --- choosing --------------------------------------------------------------------------------

  // Choosing again at the same place goes through the elements that lie on each other.
  let chosen = {x: 0, y: 0, places: [], at: 0};

  function choose(x, y) {
    const point = moving.toSheet({clientX: x, clientY: y});
    const isSame = chosen.places.length > 1 && chosen.places[chosen.at] === current &&
        Math.hypot(point.x - chosen.x, point.y - chosen.y) < 3 * moving.grain();
    chosen = isSame ? Object.assign(chosen, {at: (chosen.at + 1) % chosen.places.length})
        : {x: point.x, y: point.y, places: surface.elementsAt(x, y), at: 0};
    if (chosen.places.length === 0) { return clear(); }
    select(chosen.places[chosen.at]);
    if (chosen.places.length > 1) {
      say((chosen.at + 1) + ' of ' + chosen.places.length + ' that lie here; choose again for the next.');
    }
  }

  // The next element that is drawn, or the one before.
  function step(by) {
    const count = surface.places.length;
    if (count === 0) { return; }
    const at = surface.places.indexOf(current);
    const place = surface.places[at < 0 ? (by > 0 ? 0 : count - 1) : (at + by + count) % count];
    select(place);
    goTo([place]);
  }

  function point(x, y) {
    if (tape.isOn()) { tape.addPoint(x, y); } else { choose(x, y); }
  }

  view.addEventListener('click', function (event) {
    if (!moving.hasMoved()) { point(event.clientX, event.clientY); }
  });

  view.addEventListener('keydown', function (event) {
    if (event.ctrlKey || event.altKey || event.metaKey) { return; }
    const key = event.key.toLowerCase();
    if (key === 'm') { tape.switchOn(!tape.isOn()); }
    else if (key === 'n') { step(1); }
    else if (key === 'p') { step(-1); }
    else if (key === '/') { input.focus(); }
    else if (key === 'backspace' && tape.isOn()) { tape.takeBack(); }
    else if (key === 'escape') {
      if (tape.isOn()) { tape.switchOn(false); } else { clear(); }
    } else if (key === 'enter') {
      const edges = view.getBoundingClientRect();
      point(edges.left + edges.width / 2, edges.top + edges.height / 2);
    } else { return; }
    event.preventDefault();
  });

  // --- layers ----------------------------------------------------------------------------------

  function addSwitch(name, toggle) {
    const label = add(document.getElementById('layers'), 'label');
    const box = add(label, 'input');
    box.type = 'checkbox';
    box.checked = true;
    box.name = name;
    label.appendChild(document.createTextNode(' ' + name));
    box.addEventListener('change', function () { toggle(!box.checked); });
  }

  surface.layers.forEach(function (name) {
    addSwitch(name, function (isOff) { surface.switchLayer(name, isOff); });
  });
  if (surface.hasHidden) { addSwitch('hidden bars', surface.switchHidden); }

  // --- list, panel, address --------------------------------------------------------------------

  barTable(data, function (places, row) {
    clear();
    row.classList.add('found');
    surface.mark(places);
    goTo(places);
  });
  foldingPanel();
  printingToScale(moving);

  // "#mark=5", "#text=level" and "#element=12" show these; any other address does nothing.
  function goToAddress() {
    const address = /^#(mark|text|element)=(.+)$/.exec(location.hash);
    let value = '';
    try {
      value = address ? decodeURIComponent(address[2]) : '';
    } catch (error) {
      return;
    }
    if (value === '') { return; }
    if (address[1] === 'element') {
      const place = /^[0-9]{1,9}$/.test(value) ? Number(value) : -1;
      if (place < 0 || place >= elements.count) { return; }
      select(place);
      goTo([place]);
    } else {
      input.value = address[1] === 'text' ? '"' + value + '"' : value;
      find(input.value);
    }
  }
  window.addEventListener('hashchange', goToAddress);
  goToAddress();
  document.documentElement.setAttribute('data-ready', 'true');
}());
