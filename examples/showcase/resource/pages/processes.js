Showcase.add({
  title: 'Processes',
  icon: 'processes',
  group: 'System',
  plugins: ['system'],
  intro: 'shellExecute of the plug-in "system" opens files, programs and addresses. With a function, a page hears how a ' +
    'program has ended.',
  examples: [
    {
      title: 'Exit codes',
      text: 'Any number of programs run side by side. Each end comes with its code and its context.',
      button: 'Start three',
      run: function (say) {
        var codes = [0, 7, 42];
        for (var i = 0; i < codes.length; i++) {
          window.external.system.shellExecute({
            path: 'C:\\windows\\system32\\cmd.exe',
            args: '/c exit ' + codes[i],
            context: 'Program ' + (i + 1),
            exitCallback: function (code, name) {
              say(name + ' has ended with ' + code);
            }
          });
        }
      }
    },
    {
      title: 'A runner',
      text: 'The answer is true when the program was started. %variables% of the environment are expanded first.',
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
      text: 'Nobody hears of the end, and the answer is the other way round: false when it was started.',
      button: 'Open the folder of Windows',
      run: function (say) {
        say(window.external.system.shellExecute({ path: 'C:\\windows' }));
      }
    }
  ]
});
