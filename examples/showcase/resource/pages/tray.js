Showcase.add({
  title: 'Tray',
  icon: 'tray',
  group: 'Desktop',
  plugins: ['tray'],
  intro: 'The plug-in "tray" shows one icon for the window at the end of the task bar.',
  examples: [
    {
      title: 'An icon with a menu',
      text: 'A menu that is opened from an icon has the type trayMenu. Click the icon with either button, or twice.',
      button: 'Show the icon',
      run: function (say) {
        var win = window.external.window;
        var tray = window.external.tray;
        var menu = window.external.menu.createMenu('trayMenu');
        menu.appendMenu({
          name: 'Hide the window',
          callback: function () {
            win.show(false);
          }
        });
        menu.appendMenu({
          name: 'Show the window',
          callback: function () {
            win.show(true);
          }
        });
        tray.onClick = function () {
          say('One click');
        };
        tray.onDbClick = function () {
          win.show(true);
        };
        tray.onRClick = function () {
          menu.popup();
        };
        tray.addTray('The Tarvik showcase');
      }
    },
    {
      title: 'Another picture and tip',
      text: 'A shown icon keeps both, so it is taken away first. The picture is a file beside the page.',
      button: 'Change the icon',
      run: function (say) {
        var tray = window.external.tray;
        tray.hide();
        tray.addTray('A leaf of the showcase', 'leaf.ico');
        say('It is a leaf now.');
      }
    },
    {
      title: 'Without the icon',
      text: 'Its functions stay, and so does the picture for the next show.',
      button: 'Hide or show it',
      run: function (say, card) {
        var tray = window.external.tray;
        card.hidesIcon = !card.hidesIcon;
        if (card.hidesIcon) {
          tray.hide();
        } else {
          tray.show();
        }
        say(card.hidesIcon ? 'Hidden' : 'Shown');
      }
    }
  ]
});
