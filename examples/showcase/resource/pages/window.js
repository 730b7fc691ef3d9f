Showcase.add({
  title: 'The window',
  icon: 'window',
  group: 'Windows',
  plugins: ['window'],
  intro: 'The plug-in "window" controls the top-level window that shows the page.',
  examples: [
    {
      title: 'Title',
      text: 'A property that can be read and written.',
      button: 'Change the title',
      run: function (say) {
        var win = window.external.window;
        win.title = 'Tarvik at ' + new Date().toLocaleTimeString();
        say('The title is now: ' + win.title);
      }
    },
    {
      title: 'Size',
      text: 'Width and height include the window\'s frame.',
      button: 'A little wider',
      run: function (say) {
        var win = window.external.window;
        win.width = win.width + 40;
        say(win.width + ' by ' + win.height);
      }
    },
    {
      title: 'Hide and show',
      text: 'The window disappears for a second. The page keeps running.',
      button: 'Hide for a second',
      run: function (say) {
        var win = window.external.window;
        win.show(false);
        say('Visible: ' + win.isVisible());
        setTimeout(function () {
          win.show(true);
          say('Visible: ' + win.isVisible());
        }, 1000);
      }
    },
    {
      title: 'Position',
      text: 'Positions are in pixels of the screen. The user cannot make the window smaller than its limits.',
      button: 'Centre it, and set limits',
      run: function (say) {
        var win = window.external.window;
        win.minWidth = 700;
        win.minHeight = 480;
        win.centerWindow();
        say('At ' + win.left + ', ' + win.top + ' of ' + win.workAreaWidth + ' by ' + win.workAreaHeight);
      }
    },
    {
      title: 'Refuse to close',
      text: 'A function refuses by returning false. Press the close button after this.',
      button: 'Ask before closing',
      run: function (say) {
        var win = window.external.window;
        var sure = false;
        win.onClose = function () {
          win.messageBox({
            caption: 'Showcase',
            text: 'Really close?',
            type: 'yesNo',
            onYes: function () {
              sure = true;
            }
          });
          return sure;
        };
        say('The close button asks now.');
      }
    },
    {
      title: 'Progress in the task bar',
      text: 'The states are none, cycle, normal, error and pause.',
      button: 'Count to ten',
      run: function (say) {
        var win = window.external.window;
        var step = 0;
        var timer = setInterval(function () {
          win.setTaskbarProgress(++step, 10);
          say(step + ' of 10');
          if (step < 10) return;
          clearInterval(timer);
          win.setTaskbarProgressState('none');
        }, 300);
      }
    },
    {
      title: 'A frameless window',
      text: 'The page determines which elements drag the window: see frameless.html.',
      button: 'Open it',
      run: function () {
        createWindow({ url: 'frameless.html' });
      }
    },
    {
      title: 'A shaped window',
      text: 'The white pixels of a bitmap are cut out: see shaped.html.',
      button: 'Open it',
      run: function () {
        createWindow({ url: 'shaped.html' });
      }
    }
  ]
});
