Showcase.add({
  title: 'Hot keys',
  icon: 'hotkey',
  group: 'Desktop',
  plugins: ['hotkey'],
  intro: 'The plug-in "hotkey" calls a function when keys are pressed, wherever the user works, also while the window is ' +
    'hidden. A combination belongs to one window of the desktop.',
  examples: [
    {
      title: 'Come back from anywhere',
      text: 'The window hides; Ctrl+Alt+T brings it back, whatever program has the keyboard.',
      button: 'Hide until the keys are pressed',
      run: function (say) {
        var win = window.external.window;
        var hotkey = window.external.hotkey;
        var keys = 'ctrl+alt+t';
        function comeBack(greeting) {
          hotkey.clear(keys);
          win.show(true);
          say(greeting);
        }
        if (hotkey.set(keys, comeBack, 'Here I am.')) {
          win.show(false);
        } else {
          say('Somebody else has these keys.');
        }
      }
    },
    {
      title: 'Which texts are keys',
      text: 'ctrl, shift, alt and win, each with a plus sign behind it, and one key: a character or a name like f5 or pageup.',
      button: 'Type a combination',
      run: function (say, card) {
        var hotkey = window.external.hotkey;
        function tell(keys) {
          if (!hotkey.set(keys, function () {})) {
            return ['is no combination, or taken'];
          }
          hotkey.clear(keys);
          return ['can be set'];
        }
        Showcase.field(card, 'ctrl+alt+f9', tell);
      }
    },
    {
      title: 'Count presses',
      text: 'The combination stays when the page changes, so a page clears what an earlier one may have set.',
      button: 'Count Ctrl+Shift+F8',
      run: function (say) {
        var hotkey = window.external.hotkey;
        var keys = 'ctrl+shift+f8';
        var count = 0;
        hotkey.clear(keys);
        hotkey.set(keys, function () {
          say('Pressed ' + (++count) + ' times');
        });
      }
    }
  ]
});
