(function () {
  const view = document.getElementById('view');
  const svg = view.querySelector('svg');
  const moving = movingAbout(view, svg);
  foldingPanel();
  printingToScale(moving);
  const notes = Array.from(document.querySelectorAll('#notes button'));

  function shapesOf(number) {
    return Array.from(svg.querySelectorAll('[data-e="' + number + '"]'));
  }

  // The note and its cloud stand out together.
  function choose(number) {
    document.querySelectorAll('.found').forEach(function (one) { one.classList.remove('found'); });
    notes[number].classList.add('found');
    shapesOf(number).forEach(function (shape) {
      if (shape.closest('[data-layer="marks"]')) { shape.classList.add('found'); }
    });
  }

  notes.forEach(function (note, number) {
    note.addEventListener('click', function () {
      choose(number);
      moving.showBounds(boundsOf(shapesOf(number)));
    });
  });

  // The cloud at the pointer, or around it.
  function noteAt(event) {
    const clouds = notes.map(function (note, number) { return number; }).filter(function (number) {
      return shapesOf(number).some(function (shape) {
        const box = shape.getBoundingClientRect();
        return event.clientX >= box.left && event.clientX <= box.right &&
               event.clientY >= box.top && event.clientY <= box.bottom;
      });
    });
    return clouds.length === 0 ? null : clouds[0];
  }

  view.addEventListener('click', function (event) {
    const number = moving.hasMoved() ? null : noteAt(event);
    if (number === null) { return; }
    choose(number);
    notes[number].focus();
    notes[number].scrollIntoView({block: 'nearest'});
  });
  document.documentElement.setAttribute('data-ready', 'true');
}());
