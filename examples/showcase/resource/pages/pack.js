Showcase.add({
  title: 'Packing',
  icon: 'pack',
  group: 'Files',
  plugins: ['minizip'],
  intro: 'The plug-in "minizip" also packs files and folders into a standard ZIP archive.',
  examples: [
    {
      title: 'Pack with progress',
      text: 'progress is called after each write, with the current path and the size of all files.',
      button: 'Pack some files',
      run: function (say, card) {
        var files = ['index.html', 'showcase.css', 'showcase.js', 'garden.zip'];
        for (var i = 0; i < files.length; i++) files[i] = 'resource\\' + files[i];
        var bar = card.querySelector('.bar i') ||
            card.appendChild(Showcase.bar()).firstChild;
        window.external.minizip.zip({
          src: files,
          dest: 'files.zip',
          overWrite: true,
          progress: function (path, total) {
            var done = files.indexOf(path) + 1;
            bar.style.width = 100 * done / files.length + '%';
          },
          success: function () {
            say('Created files.zip.');
          },
          fail: function (code) {
            say('Failed: 0x' + (code >>> 0).toString(16), 'fault');
          }
        });
      }
    },
    {
      title: 'Pack a folder and unpack it',
      text: 'A folder is packed with everything below it. Names in the archive are relative to that folder.',
      button: 'Pack and unpack',
      run: function (say, card) {
        var bar = card.querySelector('.bar i') ||
            card.appendChild(Showcase.bar()).firstChild;
        var archives = window.external.minizip;
        archives.zip({
          src: 'resource',
          dest: 'showcase.zip',
          overWrite: true,
          success: function () {
            say('Packed. Unpacking into "copy" ...');
            archives.unzip({
              src: 'showcase.zip',
              dest: 'copy',
              overWrite: true,
              progress: function (name, total, processed) {
                if (total) bar.style.width = 100 * processed / total + '%';
              },
              success: function () {
                say('Unpacked.');
              },
              fail: function (context, code) {
                say('Failed: 0x' + (code >>> 0).toString(16), 'fault');
              }
            });
          },
          fail: function (code) {
            say('Failed: 0x' + (code >>> 0).toString(16), 'fault');
          }
        });
      }
    },
    {
      title: 'Into memory',
      text: 'The archive can be written to a stream. Do not use the stream until success or fail is called.',
      button: 'Pack into a stream',
      run: function (say) {
        var bytes = window.external.stream;
        window.external.minizip.zip({
          src: 'resource\\pages',
          dest: bytes,
          success: function () {
            say('The archive has ' + bytes.getSize() + ' bytes.');
          },
          fail: function (code) {
            say('Failed: 0x' + (code >>> 0).toString(16), 'fault');
          }
        });
      }
    }
  ]
});
