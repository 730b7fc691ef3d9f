Showcase.add({
  title: 'Files',
  icon: 'file',
  group: 'Files',
  plugins: ['file'],
  intro: 'The plug-in "file" answers questions about paths, deletes, copies, moves and lists. What may take long runs in ' +
    'the background and tells how it goes.',
  examples: [
    {
      title: 'A file explorer',
      text: 'One page with enumFiles, copyAsync and deleteFile: look into files.js, beside this page.',
      button: 'Open the explorer',
      run: function () {
        createWindow({ url: 'files.html' });
      }
    },
    {
      title: 'Copy and delete',
      text: 'Relative paths count from the page. progress may end the run by false; then nothing else is called.',
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
      text: 'The path counts from the current folder, and the expression is matched against the full path.',
      button: 'List the pages',
      run: function (say) {
        window.external.file.enumFiles({
          path: 'resource',
          filter: '\\.html$',
          callback: function (path, attributes, size) {
            say(path + ', ' + size + ' bytes');
          },
          completed: function () {
            say('That was all.');
          }
        });
      }
    }
  ]
});
