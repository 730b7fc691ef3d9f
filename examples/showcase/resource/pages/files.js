Showcase.add({
  title: 'Files',
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
      button: 'Copy the samples',
      run: function (say) {
        var file = window.external.file;
        file.copyAsync({
          srcPath: 'samples',
          destPath: 'samples again',
          replaceExisting: true,
          progress: function (processed, total) {
            say(processed + ' of ' + total + ' bytes');
          },
          success: function () {
            say('The copy has ' + file.getSize('samples again\\garden.zip') + ' bytes.');
            say('Deleted again: ' + file.deleteFile('samples again'));
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
