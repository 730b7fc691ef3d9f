Showcase.add({
  title: 'Hot keys',
  icon: 'hotkey',
  group: 'Desktop',
  plugins: ['hotkey'],
  intro: 'The plug-in "hotkey" calls a function when keys are pressed, whichever program has the focus, even while the ' +
    'window is hidden. Only one window on the desktop can have a combination.',
  examples: [
    {
      title: 'Come back from anywhere',
      text: 'The window hides; Ctrl+Alt+T brings it back from any program.',
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
          say('Another program has these keys.');
        }
      }
    },
    {
      title: 'Valid combinations',
      text: 'ctrl, shift, alt and win, each followed by a plus sign, and one key: a character or a name like f5 or pageup.',
      button: 'Type a combination',
      run: function (say, card) {
        var hotkey = window.external.hotkey;
        function check(keys) {
          if (!hotkey.set(keys, function () {})) {
            return ['is not a combination, or is taken'];
          }
          hotkey.clear(keys);
          return ['can be set'];
        }
        Showcase.field(card, 'ctrl+alt+f9', check);
      }
    },
    {
      title: 'Count presses',
      text: 'A combination survives navigation, so a page clears one that an earlier page may have set.',
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
