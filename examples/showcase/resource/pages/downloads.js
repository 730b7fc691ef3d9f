Showcase.add({
  title: 'Downloads',
  icon: 'http',
  group: 'Data and network',
  plugins: ['http'],
  intro: 'The plug-in "http" stores what an address gives in a file, in the background. For all other requests it hands out ' +
    'the system\'s own object. Any server will do; "python3 -m http.server" is one, for the folder that it is started in.',
  examples: [
    {
      title: 'Download with progress',
      text: 'progress is told of each piece. Its false ends the download, and nothing is left of the file.',
      address: 'http://localhost:8000/',
      button: 'Download',
      run: function (say, card) {
        var bar = card.querySelector('.bar i') ||
            card.appendChild(Showcase.bar()).firstChild;
        var isCancelled = Showcase.cancel(card);
        var file = window.external.file;
        var client = window.external.http.createClient();
        client.downloadToFile({
          url: card.querySelector('input').value,
          destPath: 'download.tmp',
          progress: function (done, total) {
            bar.style.width = 100 * done / total + '%';
            if (isCancelled()) say('Cancelled.');
            return !isCancelled();
          },
          success: function () {
            say('It has ' + file.getSize('download.tmp') + ' bytes.');
            file.deleteFile('download.tmp');
          },
          fail: function (code) {
            say('Failed: 0x' + (code >>> 0).toString(16), 'fault');
          }
        });
      }
    },
    {
      title: 'Why a download failed',
      text: 'fail gets a status, and a client has names for some. The file is made when the server has answered.',
      button: 'Ask where nobody listens',
      run: function (say) {
        var client = window.external.http.createClient();
        client.downloadToFile({
          url: 'http://localhost:9/',
          destPath: 'nothing.tmp',
          fail: function (code) {
            var denied = code === client.E_ACCESSDENIED;
            say(denied ? 'The file cannot be written.'
              : 'No connection: 0x' + (code >>> 0).toString(16));
          }
        });
      }
    },
    {
      title: 'A request',
      text: 'The object is the system\'s, with open, send, status and responseText.',
      address: 'http://localhost:8000/',
      button: 'Get',
      run: function (say, card) {
        var request = window.external.http.createXmlHttp();
        request.open('GET', card.querySelector('input').value, false);
        request.send();
        say('Status ' + request.status + ', ' +
          request.responseText.length + ' characters.');
      }
    }
  ]
});
