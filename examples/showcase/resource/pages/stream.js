Showcase.add({
  title: 'Streams',
  icon: 'stream',
  group: 'Files',
  plugins: ['stream', 'fileIO'],
  intro: 'A stream is a block of bytes with a position. It grows when it is written to. Each read of the plug-in "stream" ' +
    'returns a new one.',
  examples: [
    {
      title: 'Numbers and texts',
      text: 'Members read and write at the position, and move it.',
      button: 'Write and read',
      run: function (say) {
        var stream = window.external.stream;
        stream.writeUInt16(2026);
        stream.writeString('a line of text');
        stream.seek(0, stream.BEGIN);
        say(stream.readUInt16() + ', ' + stream.readString() + ', then ' + stream.readUInt8());
      }
    },
    {
      title: 'A text as bytes',
      text: 'Each encoding yields different bytes. unicode and ansi add a zero at the end.',
      button: 'Type a text',
      run: function (say, card) {
        function bytesOf(text, encoding) {
          var stream = window.external.stream;
          var bytes = [];
          stream.writeString(text, encoding);
          stream.seek(0, stream.BEGIN);
          for (var next = stream.readUInt8(); next !== null; next = stream.readUInt8())
            bytes.push(next.toString(16));
          return encoding + ': ' + bytes.join(' ');
        }
        Showcase.field(card, 'd\u00e9j\u00e0 \u6f22', function (text) {
          return [bytesOf(text, 'utf8'), bytesOf(text, 'unicode'), bytesOf(text, 'ansi')];
        });
      }
    }
  ]
});
