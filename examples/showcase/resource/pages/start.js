// @ts-nocheck: one of its examples is wrong on purpose.
Showcase.add({
  title: 'Start',
  icon: 'start',
  intro: 'This window is one HTML page. What it can do beyond a page it does through window.external, which has these ' +
    'plug-ins. Each card runs the very source that stands beside it.',
  examples: [
    {
      title: 'A first call',
      text: 'A plug-in is read by its name; its members are called like those of any object, and answer at once.',
      button: 'Ask the window',
      run: function (say) {
        var win = window.external.window;
        say('This window is called "' + win.title + '" and measures ' +
            win.width + ' by ' + win.height + ' pixels.');
      }
    },
    {
      title: 'When a call is wrong',
      text: 'A member that is called wrongly throws; the number of the error is the status.',
      button: 'Call it wrongly',
      run: function (say) {
        try {
          window.external.window.show('yes, please');
        } catch (error) {
          say('show() wants a boolean: 0x' + (error.number >>> 0).toString(16));
        }
      }
    }
  ]
});
