Showcase.add({
  title: 'Dropped files',
  icon: 'dragfile',
  group: 'Desktop',
  plugins: ['dragfile'],
  intro: 'The plug-in "dragfile" makes elements of the page targets for files that the user drags from the desktop. Any ' +
    'other element refuses them.',
  examples: [
    {
      title: 'What is in them',
      text: 'The function gets an array of paths. Sizes come from "file", texts by "fileIO" and "stream", and their SHA-1 by "hash".',
      button: 'Make a place for files',
      run: function (say, card) {
        var area = 'files-area';
        var list = Showcase.dropArea(
            card, area, 'Drop text files here');

        function hashOf(path) {
          var file = window.external.fileIO;
          var bytes = window.external.stream;
          if (!file.open(path, 'r')) return 'not read';
          file.read(bytes, -1);
          file.close();
          bytes.seek(0, bytes.BEGIN);
          return window.external.hash.sha1()
              .addData(bytes.readString() || '')
              .finish();
        }
        function about(path) {
          var file = window.external.file;
          var size = file.getSize(path);
          if (size === undefined) return 'no file';
          return size + ' bytes' +
              (size < 1e6 ? '\n' + hashOf(path) : '');
        }
        function take(paths) {
          list.textContent = '';
          for (var i = 0; i < paths.length; i++) {
            list.textContent += paths[i] + '\n' +
                about(paths[i]) + '\n';
          }
        }
        window.external.dragfile.bind(area, take);
      }
    },
    {
      title: 'One target inside of another',
      text: 'The nearest element that is bound gets the files. The context says which of them it was.',
      button: 'Make two places',
      run: function (say, card) {
        var dragfile = window.external.dragfile;
        Showcase.dropArea(
            card, 'outer-area', 'outside',
            'inner-area', 'inside');
        function take(paths, where) {
          say(paths.length + ' dropped ' + where +
              ', first ' + paths[0]);
        }
        dragfile.bind('outer-area', take, 'outside');
        dragfile.bind('inner-area', take, 'inside');
      }
    }
  ]
});
