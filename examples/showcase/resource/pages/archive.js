Showcase.add({
  title: 'Archives',
  icon: 'minizip',
  group: 'Files',
  plugins: ['minizip'],
  intro: 'The plug-in "minizip" unpacks ZIP archives in the background, also archives that are attached to other ' +
    'files. The host unpacked this showcase with it.',
  examples: [
    {
      title: 'Unpack with progress',
      text: 'progress is called at the start of each file, and for each chunk of data.',
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
      title: 'A damaged archive',
      text: 'Any failure calls fail with a status. A folder that the call created is removed again.',
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
