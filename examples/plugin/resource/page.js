(function () {
  var external = window.external;
  var clipboard = external.clipboard;  // always the same object
  var search = external.search;        // a new object at each read, so the page stores one for stop

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

  function report(text) { find('state').textContent = text; }

  // The array is an object of the host, with `length` and elements, but without JavaScript's array methods.
  function showFormats() {
    var formats = clipboard.formats();
    var names = [];
    for (var i = 0; i < formats.length; i++) names.push(formats[i]);
    find('formats').textContent = 'Formats: ' + names.join(', ');
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
        progress: function (path, files) { report(files + ' files, now ' + path); },
        success: function (files, hits) { report(files + ' files, ' + hits + ' hits.'); },
        fail: function (status) { report('Failed: 0x' + (status >>> 0).toString(16)); }
      });
    } catch (error) {
      report('Refused: 0x' + (error.number >>> 0).toString(16));
    }
    return false;
  };

  find('stop').onclick = function () {
    search.stop();
    report('Stopped.');
  };

  // Start with some output.
  clipboard.text = find('own').value;
  find('search').onsubmit();

  external.window.onClosed = function () { external.window.quit(0); };
  external.window.title = document.title;
  external.window.width = 760;
  external.window.height = 620;
  external.window.show(true);
}());
