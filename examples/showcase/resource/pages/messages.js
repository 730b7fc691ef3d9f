Showcase.add({
  title: 'Messages',
  icon: 'messages',
  group: 'Windows',
  plugins: ['window'],
  intro: 'Windows send each other named messages, within one program or between programs. A message is addressed to ' +
    'an identifier, and every window with that identifier receives it.',
  examples: [
    {
      title: 'Two windows that talk',
      text: 'Both have the identifier "talk", so each receives every message, its own included: see messages.html.',
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
      title: 'Receive messages',
      text: 'A window receives for every identifier that it has ever had, and has one function for each message.',
      button: 'Listen',
      run: function (say) {
        var msg = window.external.window.msg;
        msg.uniqueID = 'talk';
        var isNew = msg.registerMsg(
            'line',
            function (text, context) {
              say(context + text);
            },
            'Received: '
        );
        say('Newly registered: ' + isNew);
      }
    },
    {
      title: 'Send a message',
      text: 'sendMsg returns when all receivers have handled the message. Its result says whether there were any.',
      button: 'Say hello',
      run: function (say) {
        var msg = window.external.window.msg;
        var text = 'The showcase: hello';
        if (!msg.sendMsg('talk', 'line', text)) {
          say('No window has this identifier.');
        }
      }
    },
    {
      title: 'Single instance',
      text: 'The first program that claims the name gets it. Start the showcase twice, and click in both.',
      button: 'Claim the name',
      run: function (say) {
        var win = window.external.window;
        if (win.isUniqueWindow('Tarvik showcase')) {
          say('This is the first window.');
        } else {
          say('Another window has the name.');
          win.showExistedWindow();
        }
      }
    }
  ]
});
