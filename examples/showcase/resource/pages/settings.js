Showcase.add({
  title: 'Settings',
  icon: 'config',
  group: 'Data and network',
  plugins: ['config', 'registry'],
  intro: 'The plug-in "config" stores settings in the registry or in an INI file, with the same members. The plug-in ' +
    '"registry" reads and writes any key.',
  examples: [
    {
      title: 'Two stores, side by side',
      text: 'A setting in the registry has a name, and keeps its type. A setting in a file has a section and a key, and becomes ' +
        'a string. "config" refuses fractions and booleans for the registry. The title that you type is stored for the next start.',
      button: 'Type a title',
      run: function (say, card) {
        var key = window.external.config;
        var file = window.external.config;
        key.init('Tarvik showcase');
        file.init(Showcase.iniPath(), true);

        function store(name, value) {
          key.setValue(name, value);
          file.setValue('window', name, value);
          return [name, key.queryValue(name),
                  file.queryValue('window', name)];
        }
        var old = key.queryValue('title') || 'Untitled';
        Showcase.field(card, old, function (text) {
          return Showcase.table(['registry', 'file'], [
            store('title', text),
            store('letters', text.length),
            store('ratio', text.length / 4 + 0.1),
            store('shown', text !== '')
          ]);
        });
      }
    },
    {
      title: 'Delete all settings',
      text: 'clear deletes the key or the file, with everything in it.',
      button: 'Delete both',
      run: function (say) {
        var config = window.external.config;
        config.init('Tarvik showcase');
        say('Key: ' + (config.clear() ? 'deleted' : 'does not exist'));
        config.init(Showcase.iniPath(), true);
        say('File: ' + (config.clear() ? 'deleted' : 'does not exist'));
      }
    },
    {
      title: 'Values of the system',
      text: 'A path begins with the name of a root key. mode selects the view of 32-bit or 64-bit programs.',
      button: 'Read the registry',
      run: function (say) {
        var path = 'HKEY_LOCAL_MACHINE\\Software\\Microsoft\\' +
                   'Windows NT\\CurrentVersion\\';
        var registry = window.external.registry;
        registry.mode = 'force64';
        say(registry.queryValue(path + 'ProductName') +
            ', build ' + registry.queryValue(path + 'CurrentBuild'));
      }
    }
  ]
});
