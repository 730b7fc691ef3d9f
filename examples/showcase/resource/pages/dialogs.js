Showcase.add({
  title: 'Dialogs',
  icon: 'dialogs',
  group: 'Windows',
  plugins: ['window'],
  intro: 'The plug-in "window" opens the system\'s dialogs. The page waits until the user closes them; other windows keep working.',
  examples: [
    {
      title: 'Message box',
      text: 'It calls the function of the chosen button. The types are "ok", "okCancel" and "yesNo".',
      button: 'Ask a question',
      run: function (say) {
        window.external.window.messageBox({
          caption: 'Tarvik',
          text: 'Is this a good day?',
          type: 'yesNo',
          onYes: function () {
            say('A good day.');
          },
          onNo: function () {
            say('Tomorrow may be better.');
          }
        });
      }
    },
    {
      title: 'Icons',
      text: 'alert shows a message box with the title of the window.',
      button: 'Show a warning',
      run: function () {
        alert('Mind the step.', 'warning');
      }
    },
    {
      title: 'A file to open',
      text: 'The filter has pairs of a description and a pattern, each ended by \\0. Cancel returns null.',
      button: 'Choose a file',
      run: function (say) {
        say(window.external.window.selectFile({
          title: 'Open a page',
          filter: 'Pages\0*.html\0All files\0*.*\0',
          initDir: '.',
          fileMustExist: true
        }));
      }
    },
    {
      title: 'Several files',
      text: 'With multi, the result is an array of paths.',
      button: 'Choose files',
      run: function (say) {
        var files = window.external.window.selectFile({
          initDir: 'pages',
          multi: true
        });
        for (var i = 0; files && i < files.length; i++) say(files[i]);
        if (!files) say('None.');
      }
    },
    {
      title: 'A file to save',
      text: 'The dialog asks before a file is replaced. It only returns the path and writes nothing.',
      button: 'Choose a name',
      run: function (say) {
        say(window.external.window.selectFile({
          saveMode: true,
          overwritePrompt: true,
          initDir: '.'
        }));
      }
    },
    {
      title: 'A folder',
      text: 'A relative initDir is relative to the page.',
      button: 'Choose a folder',
      run: function (say) {
        say(window.external.window.selectFolder({
          title: 'Where are the pages?',
          initDir: 'pages',
          newFolderButton: true
        }));
      }
    }
  ]
});
