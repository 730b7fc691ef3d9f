Showcase.add({
  title: 'Files',
  icon: 'file',
  group: 'Files',
  plugins: ['file'],
  intro: 'The plug-in "file" queries, deletes, copies, moves and lists files and folders. Long operations run in the ' +
    'background and report their progress.',
  examples: [
    {
      title: 'A file explorer',
      text: 'A page that uses enumFiles, copyAsync and deleteFile: see files.js, next to this page.',
      button: 'Open the explorer',
      run: function () {
        createWindow({ url: 'files.html' });
      }
    },
    {
      title: 'Copy and delete',
      text: 'Relative paths are relative to the page. If progress returns false, the copy ends, and nothing else is called.',
      button: 'Copy the pages',
      run: function (say) {
        var file = window.external.file;
        file.copyAsync({
          srcPath: 'pages',
          destPath: 'pages again',
          replaceExisting: true,
          progress: function (processed, total) {
            say(processed + ' of ' + total + ' bytes');
          },
          success: function () {
            say('The copy has ' + file.getSize('pages again\\files.js') + ' bytes.');
            say('Deleted again: ' + file.deleteFile('pages again'));
          },
          fail: function (code) {
            say('Failed: 0x' + (code >>> 0).toString(16), 'fault');
          }
        });
      }
    },
    {
      title: 'List with a filter',
      text: 'The path is relative to the current folder. The expression is matched against the full path.',
      button: 'List the pages',
      run: function (say) {
        window.external.file.enumFiles({
          path: 'resource',
          filter: '\\.html$',
          callback: function (path, attributes, size) {
            say(path + ', ' + size + ' bytes');
          },
          completed: function () {
            say('Completed.');
          }
        });
      }
    }
  ]
});
