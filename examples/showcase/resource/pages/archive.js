Showcase.add({
  title: 'Archives',
  icon: 'minizip',
  group: 'Files',
  plugins: ['minizip'],
  intro: 'The plug-in "minizip" unpacks ZIP archives in the background, also those attached to another file. The host ' +
    'itself was unpacked by it a moment ago.',
  examples: [
    {
      title: 'Unpack with progress',
      text: 'progress is called as each file begins, and again with each piece of data.',
      button: 'Unpack the sample',
      run: function (say, card) {
        var bar = card.querySelector('.bar i') ||
            card.appendChild(Showcase.bar()).firstChild;
        window.external.minizip.unzip({
          src: 'resource\\garden.zip',
          dest: 'garden',
          overWrite: true,
          progress: function (name, total, processed) {
            if (total === undefined) say('Unpacking ' + name);
            else bar.style.width = 100 * processed / total + '%';
          },
          success: function () {
            say('Done.');
          },
          fail: function (context, code) {
            say('Failed: 0x' + (code >>> 0).toString(16), 'fault');
          }
        });
      }
    },
    {
      title: 'A broken archive',
      text: 'Whatever goes wrong ends in fail, with a status. A folder that the call made is removed again.',
      button: 'Unpack a page',
      run: function (say) {
        window.external.minizip.unzip({
          src: 'resource\\index.html',
          dest: 'nothing',
          success: function () {
            say('An archive after all?', 'fault');
          },
          fail: function (context, code) {
            say('Not an archive: 0x' + (code >>> 0).toString(16));
          }
        });
      }
    }
  ]
});
