Showcase.add({
  title: 'Messages',
  icon: 'messages',
  group: 'Windows',
  plugins: ['window'],
  intro: 'Windows send each other messages by name, in one program or between several. A message is for an identifier, ' +
    'and every window that has it gets the message.',
  examples: [
    {
      title: 'Two windows that talk',
      text: 'Both have the identifier "talk", so each hears what is sent there, also by itself: look into messages.html.',
      button: 'Open two windows',
      run: function () {
        createWindow({
          url: 'messages.html',
          context: { name: 'Ann', left: 120 }
        });
        createWindow({
          url: 'messages.html',
          context: { name: 'Ben', left: 560 }
        });
      }
    },
    {
      title: 'Listen to them',
      text: 'A window receives for every identifier that it was ever given, and has one function for each message.',
      button: 'Listen',
      run: function (say) {
        var msg = window.external.window.msg;
        msg.uniqueID = 'talk';
        var isNew = msg.registerMsg(
            'line',
            function (text, context) {
              say(context + text);
            },
            'Heard: '
        );
        say('This is new: ' + isNew);
      }
    },
    {
      title: 'Say something',
      text: 'sendMsg returns when all have heard it. It answers whether there was somebody.',
      button: 'Say hello',
      run: function (say) {
        var msg = window.external.window.msg;
        var text = 'The showcase: hello';
        if (!msg.sendMsg('talk', 'line', text)) {
          say('Nobody is there.');
        }
      }
    },
    {
      title: 'The only window of its name',
      text: 'The first program that asks has the name. Start the showcase twice, and click in both.',
      button: 'Ask for the name',
      run: function (say) {
        var win = window.external.window;
        if (win.isUniqueWindow('Tarvik showcase')) {
          say('This is the first.');
        } else {
          say('There is another one.');
          win.showExistedWindow();
        }
      }
    }
  ]
});
