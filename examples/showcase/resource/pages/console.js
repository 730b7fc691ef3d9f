// @ts-nocheck: one of its examples is wrong on purpose.
Showcase.add({
  title: 'Console',
  icon: 'console',
  group: 'System',
  plugins: ['console'],
  intro: 'The plug-in "console" writes to the debugger\'s output channel and controls the dialog for script errors.',
  examples: [
    {
      title: 'A line for the debugger',
      text: 'console.log accepts strings. tarvik-log, or any debugger, shows them.',
      button: 'Write a line',
      run: function (say) {
        console.log('A line from the showcase');
        say('Written.');
      }
    },
    {
      title: 'Errors without a dialog',
      text: 'Only the value false hides the dialog for script errors. The page keeps running either way.',
      button: 'Fail in silence',
      run: function (say) {
        console.showJsError = false;
        setTimeout(function () {
          undefinedFunction();
        }, 0);
        say('This error opens no dialog.');
      }
    }
  ]
});
