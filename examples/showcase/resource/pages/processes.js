Showcase.add({
  title: 'Processes',
  icon: 'processes',
  group: 'System',
  plugins: ['system'],
  intro: 'shellExecute of the plug-in "system" opens files, programs and addresses. With the option exitCallback, it ' +
    'reports a program\'s exit code.',
  examples: [
    {
      title: 'Exit codes',
      text: 'Any number of programs run in parallel. Each calls the function with its exit code and its context.',
      button: 'Start three',
      run: function (say) {
        var codes = [0, 7, 42];
        for (var i = 0; i < codes.length; i++) {
          window.external.system.shellExecute({
            path: 'C:\\windows\\system32\\cmd.exe',
            args: '/c exit ' + codes[i],
            context: 'Program ' + (i + 1),
            exitCallback: function (code, name) {
              say(name + ' ended with ' + code);
            }
          });
        }
      }
    },
    {
      title: 'A runner',
      text: 'The result is true if the program was started. The example expands %environment variables% first.',
      button: 'Run something else',
      run: function (say, card) {
        var system = window.external.system;
        Showcase.form(card, ['%ComSpec%', '/c ping -n 3 127.0.0.1'], 'Run', function (path, args) {
          var start = new Date().getTime();
          var started = system.shellExecute({
            path: system.expandEnvirPath(path),
            args: args,
            exitCallback: function (code) {
              say(path + ': exit code ' + code + ' after ' + (new Date().getTime() - start) + ' ms');
            }
          });
          say(path + (started ? ' is running' : ' could not be started'), started ? '' : 'fault');
        });
      }
    },
    {
      title: 'Without a function',
      text: 'The page does not learn of the end, and the result is the reverse: false if the program was started.',
      button: 'Open the Windows folder',
      run: function (say) {
        say(window.external.system.shellExecute({ path: 'C:\\windows' }));
      }
    }
  ]
});
