Showcase.add({
  title: 'The window',
  intro: 'The plug-in "window" drives the top-level window that a page lives in.',
  examples: [
    {
      title: 'Title',
      text: 'A property that is read and written.',
      button: 'Change the title',
      run: function (say) {
        var win = window.external.window;
        win.title = 'Tarvik at ' + new Date().toLocaleTimeString();
        say('The title is now: ' + win.title);
      }
    },
    {
      title: 'Size',
      text: 'Width and height are those of the window with its frame.',
      button: 'A little wider',
      run: function (say) {
        var win = window.external.window;
        win.width = win.width + 40;
        say(win.width + ' by ' + win.height);
      }
    },
    {
      title: 'Hide and show',
      text: 'The window leaves the screen for a second and comes back. The page goes on running.',
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
    }
  ]
});
