// Plain ES5, which the system's old engine also runs.
(function () {
  var win = window.external.window;
  var file = window.external.file;

  function show(id, text) {
    document.getElementById(id).textContent = text;
  }

  // Returns the text of a file, without a byte order mark; null if the file cannot be read.
  function readText(path) {
    var io = window.external.fileIO;
    var bytes = window.external.stream;
    if (!io.open(path, 'r')) return null;
    io.read(bytes, -1);
    io.close();
    bytes.seek(0, bytes.BEGIN);
    return (bytes.readString() || '').replace(/^\uFEFF/, '');
  }

  function openFile() {
    var path = win.selectFile({
      title: 'Open a text file',
      filter: 'Text files\0*.txt;*.md;*.csv;*.log\0All files\0*.*\0',
      fileMustExist: true
    });
    if (path === null) return;
    var text = readText(path);
    show('about', text === null ? path + ' cannot be read' : path + ', ' + file.getSize(path) + ' bytes');
    show('text', text || '');
    console.log('opened ' + path);
  }

  document.getElementById('open').onclick = openFile;
  document.getElementById('quit').onclick = function () { win.quit(0); };
  show('place', location.href);

  // The window is hidden until its page shows it, and closing it does not end the program.
  win.onClosed = function () { win.quit(0); };
  win.title = document.title;
  win.width = 760;
  win.height = 520;
  win.minWidth = 480;
  win.minHeight = 360;
  win.centerWindow();
  win.show(true);
})();
