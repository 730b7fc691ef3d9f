Showcase.add({
  title: 'Measurement',
  icon: 'ga',
  group: 'Data and network',
  plugins: ['ga'],
  intro: 'The plug-in "ga" reports to a measurement service which screens the user opens and what the user does there. The ' +
    'service is a setting of the host\'s build. By default, hits go to port 443 of this machine only, where probably no server listens.',
  examples: [
    {
      title: 'Report a screen',
      text: 'set identifies the application, once for this window; without it, no hit is sent. A hit also contains an identifier ' +
        'of the machine, the user\'s language and the size of the screen. A page gets no result.',
      button: 'Send a hit',
      run: function (say) {
        var ga = window.external.ga;
        ga.set('UA-12345-1', 'Showcase', '1.0');
        ga.page('measurement');
        say('Sent in the background.');
      }
    },
    {
      title: 'Report an action',
      text: 'An action is a string or a whole number. If the category is not a string, nothing happens.',
      button: 'Name an action',
      run: function (say, card) {
        var ga = window.external.ga;
        ga.set('UA-12345-1', 'Showcase', '1.0');
        function send(category, action) {
          ga.event(category, action);
          say('Sent in the background: ' + action);
        }
        var texts = ['plant', 'tomato'];
        Showcase.form(card, texts, 'Send', send);
      }
    }
  ]
});
