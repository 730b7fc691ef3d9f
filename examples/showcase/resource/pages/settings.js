Showcase.add({
  title: 'Settings',
  icon: 'config',
  group: 'Data and network',
  plugins: ['config', 'registry'],
  intro: 'What a program wants to find again next time it keeps in the registry or in an INI file. The plug-in "config" does ' +
    'both, with the same members; "registry" reaches every key there is.',
  examples: [
    {
      title: 'Two stores, side by side',
      text: 'A setting in the registry has one name, and a number stays a number. One in a file has a section and a key, and ' +
        'becomes a text. The registry refuses fractions and booleans here. What you type is there again next time.',
      button: 'Type a title',
      run: function (say, card) {
        var key = window.external.config;
        var file = window.external.config;
        key.init('Tarvik showcase');
        file.init(Showcase.iniPath(), true);

        function keep(name, value) {
          key.setValue(name, value);
          file.setValue('window', name, value);
          return [name, key.queryValue(name),
                  file.queryValue('window', name)];
        }
        var old = key.queryValue('title') || 'Untitled';
        Showcase.field(card, old, function (text) {
          return Showcase.table(['registry', 'file'], [
            keep('title', text),
            keep('letters', text.length),
            keep('ratio', text.length / 4 + 0.1),
            keep('shown', text !== '')
          ]);
        });
      }
    },
    {
      title: 'Start afresh',
      text: 'clear deletes the key, or the file, with all that is in it.',
      button: 'Forget both',
      run: function (say) {
        var config = window.external.config;
        config.init('Tarvik showcase');
        say('Key: ' + (config.clear() ? 'deleted' : 'not there'));
        config.init(Showcase.iniPath(), true);
        say('File: ' + (config.clear() ? 'deleted' : 'not there'));
      }
    },
    {
      title: 'What the system says of itself',
      text: 'A path begins with the name of a root. mode chooses one half of the registry of a 64-bit system.',
      button: 'Ask the registry',
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
