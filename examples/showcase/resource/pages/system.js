Showcase.add({
  title: 'System',
  icon: 'system',
  group: 'System',
  plugins: ['system'],
  intro: 'The plug-in "system" reports about the machine, the user\'s folders and the command line.',
  examples: [
    {
      title: 'Facts',
      text: 'Read-only properties. isX64System is true only for a 32-bit program on a 64-bit system.',
      button: 'Read the properties',
      run: function (say) {
        var system = window.external.system;
        say('Language of the system: ' + system.systemLanguage);
        say('Language of the user: ' + system.userLanguage);
        say('Runs as an administrator: ' + system.administrator);
        say('64 bits: ' + system.isX64Process + ', ' + system.isX64System);
      }
    },
    {
      title: 'Folders and variables',
      text: 'DESKTOP, MYDOCUMENTS, SENDTO and others are environment variables, here and in programs that the page starts.',
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
      text: 'Raw arguments, switches (-s) and pairs (-key value, key=value).',
      button: 'List the arguments',
      run: function (say) {
        var args = window.external.system.cmdArgs;
        for (var i = 0; i < args.getOrgArgsCount(); i++) say(i + ': ' + args.getOrgArg(i));
        say('The folder of -d: ' + args.getArgPair('d'));
      }
    },
    {
      title: 'Shortcuts',
      text: 'Shortcuts to files and to addresses. The option "desktop", instead of "dest", creates one on the desktop.',
      button: 'Create one and read it',
      run: function (say) {
        var system = window.external.system;
        var path = system.expandEnvirPath('%TEMP%\\explorer.lnk');
        var created = system.createShortcut({
          src: system.cmdArgs.getOrgArg(0),
          arg: '-f files.html',
          dest: path
        });
        say('Created: ' + created);
        var link = system.parseShortcut(path);
        say(link ? link.path + ' ' + link.args : 'It cannot be read.');
        window.external.file.deleteFile(path);
      }
    }
  ]
});
