(function () {
  var external = window.external;
  var clipboard = external.clipboard;  // always the same object
  var search = external.search;        // a new one at each read: this page keeps one, for stop

  function find(id) { return document.getElementById(id); }

  function add(list, label, text) {
    var item = document.createElement('li');
    var mark = document.createElement('b');
    mark.appendChild(document.createTextNode(label + '  '));
    item.appendChild(mark);
    item.appendChild(document.createTextNode(text));
    list.appendChild(item);
    list.scrollTop = list.scrollHeight;
  }

  function tell(text) { find('state').textContent = text; }

  // The array is an object of the host's, which has `length` and its elements.
  function showFormats() {
    var formats = clipboard.formats();
    var names = [];
    for (var i = 0; i < formats.length; i++) names.push(formats[i]);
    find('formats').textContent = 'There as: ' + names.join(', ');
  }

  clipboard.onchange = function (text) {
    add(find('copied'), new Date().toLocaleTimeString(), text === null ? '(no text)' : text);
    showFormats();
  };

  find('copy').onsubmit = function () {
    clipboard.text = find('own').value;
    return false;
  };

  find('search').onsubmit = function () {
    find('hits').innerHTML = '';
    try {
      search.find({
        folder: find('folder').value,
        text: find('text').value,
        hit: function (path, line, text) { add(find('hits'), path.replace(/^.*[\\\/]/, '') + ':' + line, text.replace(/^\s+/, '')); },
        progress: function (path, files) { tell(files + ' files, now ' + path); },
        success: function (files, hits) { tell(files + ' files, ' + hits + ' hits.'); },
        fail: function (status) { tell('Failed: 0x' + (status >>> 0).toString(16)); }
      });
    } catch (error) {
      tell('Refused: 0x' + (error.number >>> 0).toString(16));
    }
    return false;
  };

  find('stop').onclick = function () {
    search.stop();
    tell('Stopped.');
  };

  // Begins with something to see.
  clipboard.text = find('own').value;
  find('search').onsubmit();

  external.window.onClosed = function () { external.window.quit(0); };
  external.window.title = document.title;
  external.window.width = 760;
  external.window.height = 620;
  external.window.show(true);
}());
