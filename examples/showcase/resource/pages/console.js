// @ts-nocheck: one of its examples is wrong on purpose.
Showcase.add({
  title: 'Console',
  icon: 'console',
  group: 'System',
  plugins: ['console'],
  intro: 'The plug-in "console" writes to the debugger\'s output channel and says what happens to script errors.',
  examples: [
    {
      title: 'A line for the debugger',
      text: 'console.log takes strings; any debugger, or a viewer of debugger output, shows them.',
      button: 'Write a line',
      run: function (say) {
        console.log('A line from the showcase');
        say('Written.');
      }
    },
    {
      title: 'Errors without a dialog',
      text: 'Only a literal false hides the dialog of script errors. The page goes on running either way.',
      button: 'Fail in silence',
      run: function (say) {
        console.showJsError = false;
        setTimeout(function () {
          nobodyDefinedThis();
        }, 0);
        say('An error is on its way, and nobody will see it.');
      }
    }
  ]
});
