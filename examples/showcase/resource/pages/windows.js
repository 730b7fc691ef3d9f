Showcase.add({
  title: 'More windows',
  icon: 'windows',
  group: 'Windows',
  plugins: [''],
  intro: 'createWindow opens a further window of the application. Both run in one process, and each can call the ' +
    'functions of the other directly.',
  examples: [
    {
      title: 'A window that reports back',
      text: 'The new page finds "callback" and "context" as its globals windowCallback and windowContext.',
      button: 'Open a window',
      run: function (say) {
        createWindow({
          url: 'second.html',
          inherit: true,
          context: { greeting: 'Good to see you.', colour: '#12b5a6' },
          callback: function (text) {
            say('The second window says: ' + text);
          }
        });
      }
    }
  ]
});
