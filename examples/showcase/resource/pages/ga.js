Showcase.add({
  title: 'Measurement',
  icon: 'ga',
  group: 'Data and network',
  plugins: ['ga'],
  intro: 'The plug-in "ga" tells a measurement service which screens are seen and what is done there. The service is a setting ' +
    'of the host\'s build. As it comes, hits go to port 443 of this machine and nowhere else, where most likely nobody takes them.',
  examples: [
    {
      title: 'A screen is seen',
      text: 'set says once for this window who tells it; without it no hit is sent. A hit also tells an identifier of the ' +
        'machine, the user\'s language and the size of the screen. A page never hears whether it arrives.',
      button: 'Tell it',
      run: function (say) {
        var ga = window.external.ga;
        ga.set('UA-12345-1', 'Showcase', '1.0');
        ga.page('measurement');
        say('On its way.');
      }
    },
    {
      title: 'Something is done',
      text: 'An action is a text or a whole number. With another kind of category nothing happens.',
      button: 'Name an action',
      run: function (say, card) {
        var ga = window.external.ga;
        ga.set('UA-12345-1', 'Showcase', '1.0');
        function tell(category, action) {
          ga.event(category, action);
          say('On its way: ' + action);
        }
        var texts = ['plant', 'tomato'];
        Showcase.form(card, texts, 'Tell it', tell);
      }
    }
  ]
});
