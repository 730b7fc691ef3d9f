// The frame of the showcase: a menu, a page of cards, a log. Plain ES5, so that the system's old engine runs it too.
var Showcase = (function () {
  var pages = [];
  var log = document.getElementById('log');

  function element(tag, className, text) {
    var made = document.createElement(tag);
    if (className) made.className = className;
    if (text !== undefined) made.appendChild(document.createTextNode(text));
    return made;
  }

  function two(number) {
    return (number < 10 ? '0' : '') + number;
  }

  function write(text, className) {
    var now = new Date();
    var line = element('li', className);
    line.appendChild(element('time', '', two(now.getHours()) + ':' + two(now.getMinutes()) + ':' + two(now.getSeconds())));
    line.appendChild(document.createTextNode(String(text)));
    log.appendChild(line);
    log.scrollTop = log.scrollHeight;
  }

  // The text of a function's body, without the indentation that its place in the file gave it.
  function sourceOf(run) {
    var lines = String(run).replace(/^[^{]*\{\r?\n?/, '').replace(/\s*\}\s*$/, '').split(/\r?\n/);
    var indent = /^\s*/.exec(lines[0])[0].length;
    for (var i = 0; i < lines.length; i++) lines[i] = lines[i].substr(indent);
    return lines.join('\n');
  }

  // An example is { title, text, address, button, run(say, card) }: what it runs is what it shows. With an address there is a
  // field for one.
  function card(example) {
    var box = element('article', 'card');
    var about = element('div', 'about');
    about.appendChild(element('h2', '', example.title));
    about.appendChild(element('p', '', example.text));
    if (example.address) {
      var input = about.appendChild(element('div', 'field')).appendChild(element('input'));
      input.value = example.address;
    }
    if (example.button) {
      var button = element('button', '', example.button);
      button.onclick = function () {
        try {
          example.run(write, about);
        } catch (error) {
          write(example.title + ': ' + (error.message || 'status 0x' + (error.number >>> 0).toString(16)), 'fault');
        }
      };
      about.appendChild(button);
    }
    box.appendChild(about);
    box.appendChild(element('pre', '', sourceOf(example.run)));
    return box;
  }

  function open(index) {
    var page = document.getElementById('page');
    var items = document.getElementById('menu').children;
    page.innerHTML = '';
    page.scrollTop = 0;
    page.appendChild(element('h1', '', pages[index].title));
    page.appendChild(element('p', 'intro', pages[index].intro));
    for (var i = 0; i < pages[index].examples.length; i++) page.appendChild(card(pages[index].examples[i]));
    for (var k = 0; k < items.length; k++) items[k].className = k === index ? 'chosen' : '';
  }

  function menuItem(index) {
    var item = element('li', '', pages[index].title);
    item.tabIndex = 0;
    item.onclick = function () { open(index); };
    item.onkeydown = function (event) {
      if (event.keyCode === 13 || event.keyCode === 32) open(index);
    };
    return item;
  }

  return {
    // A page is { title, intro, examples }.
    add: function (page) { pages.push(page); },

    // A progress bar; the width of its first child is the progress.
    bar: function () {
      var bar = element('div', 'bar');
      bar.appendChild(element('i'));
      return bar;
    },

    // A line of text below an example.
    line: function (card) {
      return card.querySelector('.line') || card.appendChild(element('div', 'line'));
    },

    // An element to drop files on, perhaps with another one inside of it. Gives the place for what comes of it.
    dropArea: function (card, id, text, innerId, innerText) {
      var area = card.querySelector('.drop') || card.appendChild(element('div', 'drop'));
      area.innerHTML = '';
      area.id = id;
      area.appendChild(element('span', '', text));
      if (innerId) area.appendChild(element('div', 'drop', innerText)).id = innerId;
      return area.appendChild(element('pre'));
    },

    // A button beside that of the card, for one run; tells whether it was pressed.
    cancel: function (card) {
      var old = card.querySelector('.cancel');
      var button = element('button', 'cancel', 'Cancel');
      if (old) card.removeChild(old);
      card.insertBefore(button, card.querySelector('button').nextSibling);
      button.onclick = function () { button.disabled = true; };
      return function () { return button.disabled; };
    },

    // A field for a text and what is made of it: lines(text) gives the lines to show, at once and at each change.
    field: function (card, text, lines) {
      var box = card.querySelector('.field') || card.appendChild(element('div', 'field'));
      var input = element('input');
      var output = element('pre');
      box.innerHTML = '';
      box.appendChild(input);
      box.appendChild(output);
      input.value = text;
      input.oninput = function () { output.textContent = lines(input.value).join('\n'); };
      input.oninput();
      input.focus();
    },

    // The lines of a table in a field: rows of a name and of values, which are shown as script writes them.
    table: function (head, rows) {
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
    },

    // Where the user's programs keep their files. The page's own folder may go when the program ends.
    iniPath: function () {
      return window.external.system.expandEnvirPath('%APPDATA%\\tarvik-showcase.ini');
    },

    // Fields for texts and a button: act(text, ...) is called with what they hold.
    form: function (card, texts, button, act) {
      var box = card.querySelector('.field') || card.appendChild(element('div', 'field'));
      var inputs = [];
      var go = element('button', '', button);
      box.innerHTML = '';
      for (var i = 0; i < texts.length; i++) {
        inputs.push(box.appendChild(element('input')));
        inputs[i].value = texts[i];
      }
      go.onclick = function () {
        var values = [];
        for (var i = 0; i < inputs.length; i++) values.push(inputs[i].value);
        act.apply(null, values);
      };
      box.appendChild(go);
      inputs[0].focus();
    },

    start: function () {
      var win = window.external.window;
      for (var i = 0; i < pages.length; i++) document.getElementById('menu').appendChild(menuItem(i));
      document.getElementById('quit').onclick = function () {
        window.external.tray.hide();  // an icon outlives a window that is not closed
        win.quit(0);
      };
      // The program outlives its windows.
      win.onClosed = function () { win.quit(0); };
      document.getElementById('clear').onclick = function () { log.innerHTML = ''; };
      open(0);
      write('The page is ready.');

      // The host shows nothing of its own: a window appears when its page says so.
      win.title = document.title;
      win.width = 1040;
      win.height = 740;
      win.show(true);
    }
  };
})();
