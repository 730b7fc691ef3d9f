Showcase.add({
  title: 'System',
  icon: 'system',
  group: 'System',
  plugins: ['system'],
  intro: 'The plug-in "system" knows the machine, the user\'s folders and how the program was started.',
  examples: [
    {
      title: 'Facts',
      text: 'Properties that are only read. isX64System is about 32-bit programs, so it is false here.',
      button: 'Look around',
      run: function (say) {
        var system = window.external.system;
        say('Language of the system: ' + system.systemLanguage);
        say('Language of the user: ' + system.userLanguage);
        say('With the rights of an administrator: ' + system.administrator);
        say('64 bits: ' + system.isX64Process + ', ' + system.isX64System);
      }
    },
    {
      title: 'Folders and variables',
      text: 'DESKTOP, MYDOCUMENTS, SENDTO and others are variables of the environment, here and in programs that are started.',
      button: 'Expand a text',
      run: function (say, card) {
        var system = window.external.system;
        Showcase.field(card, '%DESKTOP%\\%USERNAME%.txt', function (text) {
          return [system.expandEnvirPath(text)];
        });
      }
    },
    {
      title: 'Command line',
      text: 'As raw arguments, and as switches and pairs: -s, -key value and key=value.',
      button: 'List the arguments',
      run: function (say) {
        var args = window.external.system.cmdArgs;
        for (var i = 0; i < args.getOrgArgsCount(); i++) say(i + ': ' + args.getOrgArg(i));
        say('The folder that -d names: ' + args.getArgPair('d'));
      }
    },
    {
      title: 'Shortcuts',
      text: 'To files and to addresses. With "desktop" in place of "dest" they lie on the desktop.',
      button: 'Make one and read it',
      run: function (say) {
        var system = window.external.system;
        var path = system.expandEnvirPath('%TEMP%\\explorer.lnk');
        var made = system.createShortcut({
          src: system.cmdArgs.getOrgArg(0),
          arg: '-f files.html',
          dest: path
        });
        say('Made: ' + made);
        var link = system.parseShortcut(path);
        say(link ? link.path + ' ' + link.args : 'It cannot be read.');
        window.external.file.deleteFile(path);
      }
    }
  ]
});
