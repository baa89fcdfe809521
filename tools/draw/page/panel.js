
// A new element at the end of its parent.
function add(parent, name, text, className) {
  const node = document.createElementNS('http://www.w3.org/1999/xhtml', name);
  if (text !== undefined) { node.textContent = text; }
  if (className) { node.className = className; }
  if (name === 'button') { node.type = 'button'; }
  parent.appendChild(node);
  return node;
}

function say(text) { document.getElementById('message').textContent = text; }

// The button that folds the panel away and brings it back.
function foldingPanel() {
  const fold = document.getElementById('fold');
  fold.addEventListener('click', function () {
    const isFolded = document.body.classList.toggle('folded');
    fold.setAttribute('aria-expanded', String(!isFolded));
    fold.textContent = isFolded ? 'Show panel' : 'Hide panel';
    window.dispatchEvent(new Event('resize'));
  });
}

// Printed, the sheet has a page of its own size, so that its scale holds; the list comes behind it.
function printingToScale(moving) {
  const width = moving.sheet.width + 'mm';
  const height = moving.sheet.height + 'mm';
  add(document.head, 'style', '@page { size: ' + width + ' ' + height + '; margin: 0; } ' +
      '@page list { size: A4; margin: 15mm; } ' +
      '@media print { main { width: ' + width + '; height: ' + height + '; } ' +
      'main > * { width: ' + width + ' !important; height: ' + height + ' !important; } }');
  let before = null;
  window.addEventListener('beforeprint', function () {
    before = moving.box();
    moving.showWhole();
  });
  window.addEventListener('afterprint', function () {
    if (before) { moving.show(before); }
    before = null;
  });
}
