Showcase.add({
  title: 'Dropped files',
  icon: 'dragfile',
  group: 'Desktop',
  plugins: ['dragfile'],
  intro: 'The plug-in "dragfile" lets the user drop files from other programs on elements of the page. All other ' +
    'elements refuse them.',
  examples: [
    {
      title: 'The contents of files',
      text: 'The function receives an array of paths. It uses "file" for the sizes, "fileIO" and "stream" for the texts, and ' +
        '"hash" for SHA-1.',
      button: 'Create a drop target',
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
          if (size === undefined) return 'not a file';
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
      title: 'One target inside another',
      text: 'The nearest bound element receives the files. The context identifies the element.',
      button: 'Create two targets',
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
