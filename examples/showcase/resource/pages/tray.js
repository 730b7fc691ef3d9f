Showcase.add({
  title: 'Tray',
  icon: 'tray',
  group: 'Desktop',
  plugins: ['tray'],
  intro: 'The plug-in "tray" shows one icon for the window in the notification area of the task bar.',
  examples: [
    {
      title: 'An icon with a menu',
      text: 'A menu for an icon has the type trayMenu. Click the icon with either button, or double-click it.',
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
      title: 'Another image and tooltip',
      text: 'A visible icon does not change, so it is hidden first. The image is a file next to the page.',
      button: 'Change the icon',
      run: function (say) {
        var tray = window.external.tray;
        tray.hide();
        tray.addTray('The showcase as a leaf', 'leaf.ico');
        say('It is a leaf now.');
      }
    },
    {
      title: 'Hide and show the icon',
      text: 'A hidden icon keeps its functions and its image.',
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
