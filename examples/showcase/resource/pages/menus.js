Showcase.add({
  title: 'Menus',
  icon: 'menu',
  group: 'Desktop',
  plugins: ['menu'],
  intro: 'The plug-in "menu" builds native menus. Each item has a function, which is called when the user chooses ' +
    'it.',
  examples: [
    {
      title: 'At the pointer',
      text: 'popup returns when the menu has closed. Items without a function are gray.',
      button: 'Open a menu',
      run: function (say) {
        var menu = window.external.menu.createMenu();
        menu.appendMenu({ name: '&Apples', callback: say, context: 'Apples' });
        menu.appendMenu({ name: '&Pears', callback: say, context: 'Pears' });
        menu.appendMenu({ separator: true });
        menu.appendMenu({ name: 'Out of season' });
        menu.popup();
      }
    },
    {
      title: 'Submenus',
      text: 'A menu may be a submenu of several others. This one opens at a position in the page.',
      button: 'Open it',
      run: function (say, card) {
        var trees = window.external.menu.createMenu();
        trees.appendMenu({ name: 'Beech', callback: say, context: 'Beech' });
        trees.appendMenu({ name: 'Oak', callback: say, context: 'Oak' });
        var menu = window.external.menu.createMenu();
        menu.appendMenu({ name: 'Trees to plant', subMenu: trees });
        menu.appendMenu({ name: 'Trees to fell', subMenu: trees });
        var place = card.querySelector('button').getBoundingClientRect();
        menu.popup(Math.round(place.left), Math.round(place.bottom));
      }
    },
    {
      title: 'The menu bar',
      text: 'The window shows a menu of the type windowMenu as its menu bar. Alt and a letter also choose an item.',
      button: 'Show a menu bar',
      run: function (say) {
        var file = window.external.menu.createMenu();
        file.appendMenu({ name: '&New', callback: say, context: 'New' });
        file.appendMenu({ separator: true });
        file.appendMenu({
          name: '&Close\tAlt+F4',
          callback: function () {
            window.external.window.close();
          }
        });
        var bar = window.external.menu.createMenu('windowMenu');
        bar.appendMenu({ name: '&File', subMenu: file });
        bar.appendMenu({ name: '&Help', callback: say, context: 'Help' });
        window.external.window.menu = bar;
      }
    },
    {
      title: 'Gray items',
      text: 'Items and submenus are found by their names. Show the menu bar first.',
      button: 'Gray "New"',
      run: function (say) {
        var bar = window.external.window.menu;
        var file = bar && bar.getSubMenu('&File');
        if (!file) return say('There is no menu bar.');
        file.enable('&New', false);
        say(file.getItemCount() + ' items; the first is gray.');
      }
    }
  ]
});
