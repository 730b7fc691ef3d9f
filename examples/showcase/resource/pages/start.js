// @ts-nocheck: one of its examples is wrong on purpose.
Showcase.add({
  title: 'Start',
  icon: 'start',
  intro: 'This window is one HTML page. Its native powers come from window.external, which has these plug-ins. Each card ' +
    'runs the source that is shown beside it.',
  examples: [
    {
      title: 'A first call',
      text: 'Read a plug-in by its name, and call its members like those of any object.',
      button: 'Query the window',
      run: function (say) {
        var win = window.external.window;
        say('This window is called "' + win.title + '" and measures ' +
            win.width + ' by ' + win.height + ' pixels.');
      }
    },
    {
      title: 'A wrong argument',
      text: 'A call with a wrong argument throws; the number of the error is the status.',
      button: 'Pass a string',
      run: function (say) {
        try {
          window.external.window.show('yes, please');
        } catch (error) {
          say('show() requires a boolean: 0x' + (error.number >>> 0).toString(16));
        }
      }
    }
  ]
});
