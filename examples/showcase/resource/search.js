// Searches titles and texts of examples and members as the user types.
Showcase.search = (function () {
  var element = Showcase.element;
  var maxResults = 40;
  var keys = { enter: 13, escape: 27, up: 38, down: 40, f: 70, slash: 191 };
  var entries = null;

  function withoutTags(html) {
    return html.replace(/<[^>]*>/g, '').replace(/&lt;/g, '<').replace(/&gt;/g, '>').replace(/&quot;/g, '"').replace(/&amp;/g, '&');
  }

  function add(page, title, text, target) {
    entries.push({ page: page, title: title, text: text, target: target, words: (title + ' ' + text).toLowerCase() });
  }

  function addMembers(plugin) {
    var page = Showcase.homeOf(plugin.name);
    for (var i = 0; i < plugin.objects.length; i++) {
      var object = plugin.objects[i];
      var prefix = object.name === plugin.type ? plugin.name : object.name;
      for (var k = 0; k < object.members.length; k++) {
        var member = object.members[k];
        add(page, prefix + '.' + member.name, withoutTags(member.summary), [plugin.name, object.name, member.name].join('.'));
      }
    }
  }

  function collect() {
    var pages = Showcase.pages;
    entries = [];
    for (var i = 0; i < pages.length; i++) {
      add(pages[i], pages[i].title, pages[i].intro);
      for (var k = 0; k < pages[i].examples.length; k++)
        add(pages[i], pages[i].examples[k].title, pages[i].examples[k].text, pages[i].examples[k].title);
    }
    for (var n = 0; n < Showcase.reference.length; n++) addMembers(Showcase.reference[n]);
  }

  // Matches in the title come first.
  function find(text) {
    var words = text.toLowerCase().split(/\s+/);
    var inTitle = [], elsewhere = [];
    if (!entries) collect();
    for (var i = 0; i < entries.length; i++) {
      var all = true, allInTitle = true;
      for (var k = 0; k < words.length; k++) {
        if (entries[i].words.indexOf(words[k]) < 0) all = false;
        if (entries[i].title.toLowerCase().indexOf(words[k]) < 0) allInTitle = false;
      }
      if (all) (allInTitle ? inTitle : elsewhere).push(entries[i]);
    }
    return inTitle.concat(elsewhere);
  }

  function resultElement(entry) {
    var item = element('div', 'hit');
    item.appendChild(element('b', '', entry.title));
    item.appendChild(element('span', '', entry.text));
    Showcase.press(item, function () {
      document.getElementById('page').focus();
      Showcase.open(entry.page, entry.target);
    });
    return item;
  }

  function showHits(text) {
    var hits = find(text);
    var page = Showcase.clear('');
    page.appendChild(element('h1', '', (hits.length || 'No') + (hits.length === 1 ? ' result' : ' results')));
    page.appendChild(element('p', 'intro', 'for "' + text + '"'));
    for (var i = 0; i < hits.length && i < maxResults; i++) page.appendChild(resultElement(hits[i]));
  }

  function focusNeighbour(from, forward) {
    var next = forward ? from.nextSibling : from.previousSibling;
    if (next && next.className === 'hit') next.focus();
  }

  return function (input) {
    input.oninput = function () {
      var text = input.value.replace(/^\s+|\s+$/g, '');
      // While the list of hits is shown, no page is selected in the menu.
      if (text) showHits(text);
      else if (!document.querySelector('#menu .chosen')) Showcase.open(Showcase.current());
    };
    input.onkeydown = function (event) {
      /** @type {HTMLElement} */
      var first = document.querySelector('.hit');
      if (event.keyCode === keys.escape) {
        input.value = '';
        input.oninput();
      }
      if (first && event.keyCode === keys.enter) first.click();
      if (first && event.keyCode === keys.down) first.focus();
    };
    document.addEventListener('keydown', function (event) {
      var at = document.activeElement;
      if (at.className === 'hit' && (event.keyCode === keys.up || event.keyCode === keys.down)) {
        focusNeighbour(at, event.keyCode === keys.down);
        event.preventDefault();
      }
      // Ctrl+F, or a slash outside of text fields.
      if (event.ctrlKey && event.keyCode === keys.f || event.keyCode === keys.slash && !/INPUT|TEXTAREA/.test(at.tagName)) {
        input.focus();
        input.select();
        event.preventDefault();
      }
    });
  };
})();
