
// The elements of the file by their places, read from their lines when they are asked for. An empty field
// is as in the row before of the same class; every so many rows of a class have all their texts.
function elementRows(classes, text) {
  const keyRows = 64;
  const lines = text.split('\n').filter(function (line) { return line !== ''; });
  let kinds = null;       // the class of each element
  let numbers = null;     // its row among those of its class
  let placesOf = null;    // of each class

  function look() {
    if (kinds) { return; }
    kinds = new Uint32Array(lines.length);
    numbers = new Uint32Array(lines.length);
    placesOf = classes.map(function () { return []; });
    lines.forEach(function (line, place) {
      const kind = parseInt(line, 10);
      kinds[place] = kind;
      numbers[place] = placesOf[kind].length;
      placesOf[kind].push(place);
    });
  }

  function textOf(field) {
    return field === '"' ? '' : field.includes('\\') ? JSON.parse('"' + field + '"') : field;
  }

  // The index, the description and the items of the rows of a class, each with what it takes from the
  // row before; the call gets them one by one.
  function eachRow(kind, from, to, call) {
    const width = classes[kind][2].length + 2;
    const values = new Array(width).fill('');
    for (let number = from; number <= to; number += 1) {
      const place = placesOf[kind][number];
      const fields = lines[place].split('\t');
      values[0] = String(number + 1);
      for (let i = 1; i < fields.length; i += 1) {
        if (fields[i] !== '') { values[i - 1] = textOf(fields[i]); }
      }
      call(values, place);
    }
  }

  // {name, index, description, items: [[name, text], ...]}
  function element(place) {
    look();
    const kind = kinds[place];
    const number = numbers[place];
    let found = null;
    eachRow(kind, number - number % keyRows, number, function (values) { found = values; });
    const one = classes[kind];
    return {
      name: one[0],
      index: found[0],
      description: found[1] || one[1] + ' ' + found[0],
      items: one[2].map(function (name, i) { return [name, found[i + 2]]; })
    };
  }

  // The places of the texts that hold the words, whatever their case.
  let contents = null;
  function withText(words) {
    look();
    if (!contents) {
      contents = [];
      classes.forEach(function (one, kind) {
        const column = one[2].indexOf('Contents');
        if (column < 0) { return; }
        eachRow(kind, 0, placesOf[kind].length - 1, function (values, place) {
          contents.push([place, values[column + 2].toLowerCase()]);
        });
      });
    }
    const wanted = words.toLowerCase();
    return contents.filter(function (one) { return one[1].includes(wanted); }).map(function (one) {
      return one[0];
    }).sort(function (a, b) { return a - b; });
  }

  return {count: lines.length, element: element, withText: withText};
}

// The places of each mark's elements, by the mark as text.
function placesByMark(marks) {
  return new Map(marks.map(function (one) {
    let place = 0;
    return [String(one[0]), one[1].map(function (way) { return place += way; })];
  }));
}
