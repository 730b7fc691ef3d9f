// A small file explorer, built on the plug-in "file".
var file = window.external.file;
var win = window.external.window;
var FOLDER = 16;  // of a file's attributes

var folder = '';      // the displayed folder, with a backslash at its end
var chosen = null;    // the selected entry: { path, name, isFolder, size, row }
var listing = 0;      // numbers the listings, to ignore late calls of older ones
var cancelled = false;

/** @returns {any} the element; its type depends on the id */
function by(id) {
  return document.getElementById(id);
}

function say(text) {
  by('state').textContent = text;
}

function hex(code) {
  return '0x' + (code >>> 0).toString(16);
}

function sizeText(bytes) {
  var units = ['bytes', 'kB', 'MB', 'GB', 'TB'];
  for (var i = 0; bytes >= 1000 && i < units.length - 1; i++) bytes /= 1000;
  return (i && bytes < 10 ? bytes.toFixed(1) : Math.round(bytes)) + ' ' + units[i];
}

function choose(entry) {
  if (chosen) chosen.row.className = '';
  chosen = entry;
  if (entry) entry.row.className = 'chosen';
  by('delete').disabled = by('copy').disabled = !entry;
  by('target').value = entry ? folder + 'Copy of ' + entry.name : '';
}

function addRow(entry) {
  var row = entry.row = by('list').insertRow(-1);
  row.insertCell(-1).appendChild(document.createElement('i')).className = entry.isFolder ? 'folder' : 'file';
  row.insertCell(-1).appendChild(document.createTextNode(entry.name));
  row.insertCell(-1).appendChild(document.createTextNode(entry.isFolder ? '' : sizeText(entry.size)));
  row.onclick = function () { choose(entry); };
  row.ondblclick = function () {
    if (entry.isFolder) show(entry.path);
  };
}

// Folders first, then by name.
function order(a, b) {
  if (a.isFolder !== b.isFolder) return a.isFolder ? -1 : 1;
  return a.name.toLowerCase() < b.name.toLowerCase() ? -1 : 1;
}

// Lists a folder; `text` reports what has changed there.
function show(path, text) {
  var entries = [], mine = ++listing;
  folder = path.replace(/\\*$/, '\\');
  by('path').value = folder;
  choose(null);
  file.enumFiles({
    path: folder,
    recursive: false,
    callback: function (path, attributes, size) {
      entries.push({
        path: path,
        name: path.substr(folder.length),
        isFolder: (attributes & FOLDER) !== 0,
        size: size
      });
      return mine === listing;  // false ends an outdated listing
    },
    completed: function () {
      if (mine !== listing) return;
      by('list').innerHTML = '';
      entries.sort(order);
      for (var i = 0; i < entries.length; i++) addRow(entries[i]);
      say(text || (file.isDir(folder) ? entries.length + ' entries' : 'The folder does not exist: ' + folder));
    }
  });
}

// After success, fail and cancel: lists the folder again, because it may have changed.
function endCopy(text) {
  by('cancel').disabled = true;
  by('done').style.width = 0;
  show(folder, text);
}

function copy() {
  var entry = chosen;
  cancelled = false;
  by('cancel').disabled = !file.copyAsync({
    srcPath: entry.path,
    destPath: by('target').value,
    progress: function (processed, total) {
      by('done').style.width = 100 * processed / total + '%';
      say(sizeText(processed) + ' of ' + sizeText(total));
      if (!cancelled) return true;
      endCopy('Cancelled. Files that were copied stay.');
      return false;
    },
    success: function () {
      endCopy('Copied ' + entry.name);
    },
    fail: function (code) {
      endCopy('Not copied: ' + hex(code));
    }
  });
}

function remove() {
  if (!confirm('Delete ' + chosen.path + (chosen.isFolder ? ' and everything in it?' : '?'))) return;
  show(folder, (file.deleteFile(chosen.path) ? 'Deleted ' : 'Could not completely delete ') + chosen.name);
}

by('up').onclick = function () { show(folder.replace(/^(.+?\\)[^\\]*\\$/, '$1')); };
by('go').onclick = function () { show(by('path').value); };
by('path').onkeydown = function (event) {
  if (event.keyCode === 13) show(by('path').value);
};
by('copy').onclick = copy;
by('cancel').onclick = function () { cancelled = true; };
by('delete').onclick = remove;

show(by('path').value);
win.title = document.title;
win.width = 760;
win.height = 560;
win.show(true);
