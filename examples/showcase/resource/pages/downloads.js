Showcase.add({
  title: 'Downloads',
  icon: 'http',
  group: 'Data and network',
  plugins: ['http'],
  intro: 'The plug-in "http" downloads an address to a file, in the background. For all other requests, it provides the ' +
    'system\'s own object. Any server will do: "python3 -m http.server" serves the folder in which it is started.',
  examples: [
    {
      title: 'Download with progress',
      text: 'progress is called for each chunk. If it returns false, the download ends and the file is removed.',
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
            say('Downloaded ' + file.getSize('download.tmp') + ' bytes.');
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
      text: 'fail receives a status; the client has constants for some. The file is created when the server has responded.',
      button: 'Connect to a closed port',
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
      text: 'The object is the system\'s. It has open, send, status and responseText.',
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
