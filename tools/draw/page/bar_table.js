
// The bar list beside the drawing: rows that lead to their bars, sums by diameter, and the list as CSV.
// "choose" is called with the places of a row's elements.
function barTable(data, choose) {
  const section = document.getElementById('bars');
  const rowsAtOnce = 1000;
  if (data.bars.length === 0) {
    add(section, 'p', 'No bars.');
    return;
  }

  // All but the third column, the shape or the grade, are numbers.
  function addCells(row, name, values) {
    values.forEach(function (value, column) { add(row, name, value, column === 2 ? '' : 'number'); });
  }

  function tableWith(titles, className) {
    const table = add(section, 'table', undefined, className);
    const head = add(add(table, 'thead'), 'tr');
    addCells(head, 'th', titles);
    return add(table, 'tbody');
  }

  const body = tableWith(['mark', '\u00D8', 'shape', 'number', 'length', 'kg'], 'list');

  function addRow(bar) {
    const row = add(body, 'tr');
    row.title = bar.grade;
    row.tabIndex = body.children.length === 1 ? 0 : -1;
    addCells(row, 'td', [bar.mark, bar.diameter, bar.shape, bar.number, bar.length, bar.mass]);
  }

  // A list may have a hundred thousand rows: no more are made than are asked for.
  const more = add(section, 'button');
  function addRows(number) {
    const from = body.children.length;
    data.bars.slice(from, from + number).forEach(addRow);
    const left = data.bars.length - body.children.length;
    more.hidden = left === 0;
    more.textContent = 'Show ' + Math.min(left, rowsAtOnce) + ' of ' + left + ' more rows';
  }
  addRows(rowsAtOnce);
  more.addEventListener('click', function () { addRows(rowsAtOnce); });
  window.addEventListener('beforeprint', function () { addRows(data.bars.length); });

  function chooseRow(row) { choose(data.bars[Array.prototype.indexOf.call(body.children, row)].places, row); }

  body.addEventListener('click', function (event) {
    const row = event.target.closest('tr');
    if (row) { chooseRow(row); }
  });
  // One row is on the way of the tab key; up and down lead to the others.
  body.addEventListener('keydown', function (event) {
    const row = event.target.closest('tr');
    const to = {ArrowDown: row.nextElementSibling, ArrowUp: row.previousElementSibling,
                Home: body.firstElementChild, End: body.lastElementChild}[event.key];
    if (event.key === 'Enter' || event.key === ' ') { chooseRow(row); }
    else if (to) {
      row.tabIndex = -1;
      to.tabIndex = 0;
      to.focus();
    } else { return; }
    event.preventDefault();
  });
  add(section, 'p', 'Total ' + data.mass + ' kg. ' + data.convention);

  add(section, 'h3', 'Sums by diameter');
  const sums = tableWith(['\u00D8', 'number', 'grade', 'm', 'kg'], 'sums');
  data.sums.forEach(function (sum) {
    addCells(add(sums, 'tr'), 'td', [sum.diameter, sum.number, sum.grade, sum.length, sum.mass]);
  });

  const line = add(section, 'p', undefined, 'buttons');
  add(line, 'button', 'Copy list').addEventListener('click', copyList);
  add(line, 'button', 'Save as CSV').addEventListener('click', saveList);

  // As CSV, and as a table for programs that take one.
  function copyList() {
    let isDone = false;
    function fill(event) {
      event.preventDefault();
      event.clipboardData.setData('text/plain', data.csv);
      event.clipboardData.setData('text/html', tableOf(fieldsOf(data.csv)).outerHTML);
      isDone = true;
    }
    document.addEventListener('copy', fill);
    document.execCommand('copy');
    document.removeEventListener('copy', fill);
    say(isDone ? 'The bar list is on the clipboard.' : 'The clipboard is closed to this page.');
  }

  function tableOf(rows) {
    const table = document.createElementNS('http://www.w3.org/1999/xhtml', 'table');
    rows.forEach(function (fields) {
      const row = add(table, 'tr');
      fields.forEach(function (field) { add(row, 'td', field); });
    });
    return table;
  }

  function fieldsOf(csv) {
    return csv.match(/(?:"[^"]*"|[^"\n])*\n/g).map(function (line) {
      const fields = (',' + line.trimEnd()).match(/,(?:"(?:[^"]|"")*"|[^",]*)/g);
      return fields.map(function (field) {
        const text = field.slice(1);
        return text.startsWith('"') ? text.slice(1, -1).replace(/""/g, '"') : text;
      });
    });
  }

  // The mark at the beginning tells spreadsheets that it is UTF-8.
  function saveList() {
    const link = document.createElementNS('http://www.w3.org/1999/xhtml', 'a');
    const address = URL.createObjectURL(new Blob(['\uFEFF', data.csv], {type: 'text/csv'}));
    link.setAttribute('href', address);
    link.setAttribute('download', document.title.replace(/[\u0000-\u001F\\/:*?"<>|]/g, '_') + '.csv');
    link.click();
    setTimeout(function () { URL.revokeObjectURL(address); }, 60000);
    say('The bar list is saved with the downloads.');
  }
}
