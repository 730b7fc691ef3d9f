// Widgets for the examples.

// A progress bar; the width of its first child is the progress.
Showcase.bar = function () {
  var bar = Showcase.element('div', 'bar');
  bar.appendChild(Showcase.element('i'));
  return bar;
};

// A line of text below an example.
Showcase.line = function (card) {
  return card.querySelector('.line') || card.appendChild(Showcase.element('div', 'line'));
};

// An element to drop files on, optionally with another one inside. Returns the element for the output.
Showcase.dropArea = function (card, id, text, innerId, innerText) {
  var area = card.querySelector('.drop') || card.appendChild(Showcase.element('div', 'drop'));
  area.innerHTML = '';
  area.id = id;
  area.appendChild(Showcase.element('span', '', text));
  if (innerId) area.appendChild(Showcase.element('div', 'drop', innerText)).id = innerId;
  return area.appendChild(Showcase.element('pre'));
};

// Adds a Cancel button to the card, for one operation. Returns a function that reports whether it was pressed.
Showcase.cancel = function (card) {
  var old = card.querySelector('.cancel');
  var button = Showcase.element('button', 'cancel', 'Cancel');
  if (old) card.removeChild(old);
  card.insertBefore(button, card.querySelector('button').nextSibling);
  button.onclick = function () { button.disabled = true; };
  return function () { return button.disabled; };
};

// A text field with output below: lines(text) returns the lines to show, initially and after each change.
Showcase.field = function (card, text, lines) {
  var box = card.querySelector('.field') || card.appendChild(Showcase.element('div', 'field'));
  var input = Showcase.element('input');
  var output = Showcase.element('pre');
  box.innerHTML = '';
  box.appendChild(input);
  box.appendChild(output);
  input.value = text;
  input.oninput = function () { output.textContent = lines(input.value).join('\n'); };
  input.oninput();
  input.focus();
};

// The lines of a table for a field: each row is a name and values, which are shown as JSON.
Showcase.table = function (head, rows) {
  function line(cells) {
    var text = '';
    for (var i = 0; i < cells.length; i++) {
      while (text.length < 16 * i - 6) text += ' ';
      text += cells[i].length < 16 ? cells[i] : cells[i].substr(0, 12) + '...';
    }
    return text;
  }
  var lines = [line([''].concat(head))];
  for (var k = 0; k < rows.length; k++)
    lines.push(line([rows[k][0], JSON.stringify(rows[k][1]), JSON.stringify(rows[k][2])]));
  return lines;
};

// A file in the user's folder, because the page's own folder may be removed when the program ends.
Showcase.iniPath = function () {
  return window.external.system.expandEnvirPath('%APPDATA%\\tarvik-showcase.ini');
};

// Text fields and a button, which calls act(text, ...) with the texts.
Showcase.form = function (card, texts, button, act) {
  var box = card.querySelector('.field') || card.appendChild(Showcase.element('div', 'field'));
  var inputs = [];
  var go = Showcase.element('button', '', button);
  box.innerHTML = '';
  for (var i = 0; i < texts.length; i++) {
    inputs.push(box.appendChild(Showcase.element('input')));
    inputs[i].value = texts[i];
  }
  go.onclick = function () {
    var values = [];
    for (var i = 0; i < inputs.length; i++) values.push(inputs[i].value);
    act.apply(null, values);
  };
  box.appendChild(go);
  inputs[0].focus();
};
