// Parts that examples are built from.

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

// An element to drop files on, perhaps with another one inside of it. Gives the place for what comes of it.
Showcase.dropArea = function (card, id, text, innerId, innerText) {
  var area = card.querySelector('.drop') || card.appendChild(Showcase.element('div', 'drop'));
  area.innerHTML = '';
  area.id = id;
  area.appendChild(Showcase.element('span', '', text));
  if (innerId) area.appendChild(Showcase.element('div', 'drop', innerText)).id = innerId;
  return area.appendChild(Showcase.element('pre'));
};

// A button beside that of the card, for one run; tells whether it was pressed.
Showcase.cancel = function (card) {
  var old = card.querySelector('.cancel');
  var button = Showcase.element('button', 'cancel', 'Cancel');
  if (old) card.removeChild(old);
  card.insertBefore(button, card.querySelector('button').nextSibling);
  button.onclick = function () { button.disabled = true; };
  return function () { return button.disabled; };
};

// A field for a text and what is made of it: lines(text) gives the lines to show, at once and at each change.
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

// The lines of a table in a field: rows of a name and of values, which are shown as script writes them.
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

// Where the user's programs keep their files. The page's own folder may go when the program ends.
Showcase.iniPath = function () {
  return window.external.system.expandEnvirPath('%APPDATA%\\tarvik-showcase.ini');
};

// Fields for texts and a button: act(text, ...) is called with what they hold.
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
