// The frame of the showcase: a menu, a page of cards, a log. It is plain ES5 for the old engine.
var Showcase = (function () {
  var pages = [];
  var shown = null;
  var log = document.getElementById('log');

  function element(tag, className, text) {
    var created = document.createElement(tag);
    if (className) created.className = className;
    if (text !== undefined) created.appendChild(document.createTextNode(text));
    return created;
  }

  function twoDigits(number) {
    return (number < 10 ? '0' : '') + number;
  }

  function write(text, className) {
    var now = new Date();
    var line = element('li', className);
    var time = [twoDigits(now.getHours()), twoDigits(now.getMinutes()), twoDigits(now.getSeconds())].join(':');
    line.appendChild(element('time', '', time));
    line.appendChild(document.createTextNode(String(text)));
    log.appendChild(line);
    log.scrollTop = log.scrollHeight;
  }

  function fault(error) {
    return error.message || 'status 0x' + (error.number >>> 0).toString(16);
  }

  // Makes an element work like a button: by the mouse, and by the keys Enter and Space.
  function press(item, action) {
    item.tabIndex = 0;
    item.onclick = action;
    item.onkeydown = function (event) {
      if (event.keyCode !== 13 && event.keyCode !== 32) return;
      event.preventDefault();
      action();
    };
    return item;
  }

  // The source of a function's body, without its indentation in the file.
  function sourceOf(run) {
    var lines = String(run).replace(/^[^{]*\{\r?\n?/, '').replace(/\s*\}\s*$/, '').split(/\r?\n/);
    var indent = /^\s*/.exec(lines[0])[0].length;
    for (var i = 0; i < lines.length; i++) lines[i] = lines[i].substr(indent);
    return lines.join('\n');
  }

  // An example is { title, text, address, button, run(say, card) }. The card shows the source of `run`, and a text field
  // if there is an address.
  function card(example) {
    var box = element('article', 'card');
    var about = element('div', 'about');
    box.id = example.title;
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
          write(example.title + ': ' + fault(error), 'fault');
        }
      };
      about.appendChild(button);
    }
    box.appendChild(about);
    box.appendChild(Showcase.source(sourceOf(example.run)));
    return box;
  }

  function tile(plugin) {
    var box = element('div', 'tile');
    box.appendChild(Showcase.icon(plugin.name));
    box.appendChild(element('b', '', plugin.name));
    box.appendChild(element('span')).innerHTML = plugin.summary;
    return press(box, function () { Showcase.open(Showcase.homeOf(plugin.name)); });
  }

  function tiles() {
    var grid = element('div', 'tiles');
    for (var i = 0; i < Showcase.reference.length; i++)
      if (Showcase.reference[i].name) grid.appendChild(tile(Showcase.reference[i]));
    return grid;
  }

  // Scrolls a list by the smallest distance that shows the item.
  function reveal(item, list) {
    var place = item.getBoundingClientRect(), seen = list.getBoundingClientRect();
    if (place.top < seen.top || place.bottom > seen.bottom) item.scrollIntoView(place.top < seen.top);
  }

  function clear(title) {
    var page = document.getElementById('page');
    var items = document.querySelectorAll('#menu .item');
    page.innerHTML = '';
    page.scrollTop = 0;
    for (var i = 0; i < items.length; i++) {
      var isChosen = items[i].textContent === title;
      items[i].className = isChosen ? 'item chosen' : 'item';
      if (isChosen) reveal(items[i], document.getElementById('menu'));
    }
    return page;
  }

  // Opens a page. A target, the title of an example or a member, is scrolled into view and focused.
  function open(page, target) {
    var place = clear(page.title);
    shown = page;
    place.appendChild(element('h1', '', page.title));
    place.appendChild(element('p', 'intro', page.intro));
    if (page === pages[0]) place.appendChild(tiles());
    for (var i = 0; i < page.examples.length; i++) place.appendChild(card(page.examples[i]));
    for (var k = 0; k < (page.plugins || []).length; k++)
      if (Showcase.homeOf(page.plugins[k]) === page) Showcase.referenceView.show(place, page.plugins[k]);
    /** @type {any} */
    var found = target && document.getElementById(target);
    if (!found) return;
    if (found.toggle) found.toggle(true);
    found.scrollIntoView();
    var first = found.querySelector('[tabindex], button');
    if (first) first.focus();
  }

  function menuItem(page) {
    var item = element('li', 'item');
    item.appendChild(Showcase.icon(page.icon));
    item.appendChild(document.createTextNode(page.title));
    return press(item, function () { open(page); });
  }

  function fillMenu() {
    var menu = document.getElementById('menu');
    for (var i = 0; i < pages.length; i++) {
      if (pages[i].group && pages[i].group !== pages[i - 1].group) menu.appendChild(element('li', 'group', pages[i].group));
      menu.appendChild(menuItem(pages[i]));
    }
  }

  return {
    pages: pages,
    reference: [],  // set by reference.js, which the build generates
    element: element,
    press: press,
    write: write,
    fault: fault,
    clear: clear,
    open: open,
    current: function () { return shown; },

    // A page is { title, icon, group, plugins, intro, examples }.
    add: function (page) { pages.push(page); },

    // The page that shows a plug-in's members: the first page about that plug-in.
    homeOf: function (plugin) {
      for (var i = 0; i < pages.length; i++)
        for (var k = 0; k < (pages[i].plugins || []).length; k++) if (pages[i].plugins[k] === plugin) return pages[i];
      return pages[0];
    },

    start: function () {
      var win = window.external.window;
      fillMenu();
      Showcase.search(document.getElementById('search'));
      document.getElementById('quit').onclick = function () {
        window.external.tray.hide();  // quit does not close the window, which would remove the icon
        win.quit(0);
      };
      // Closing the window alone does not end the program.
      win.onClosed = function () { win.quit(0); };
      document.getElementById('clear').onclick = function () { log.innerHTML = ''; };
      open(pages[0]);
      write('The page is ready.');

      // A window is hidden until its page shows it.
      win.title = document.title;
      win.width = 1120;
      win.height = 760;
      win.show(true);
    }
  };
})();
