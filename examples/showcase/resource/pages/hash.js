Showcase.add({
  title: 'Hashes',
  icon: 'hash',
  group: 'Data and network',
  plugins: ['hash'],
  intro: 'The plug-in "hash" gives digests of texts. It is for comparing and for naming things; none of its algorithms is ' +
    'fit to keep secrets any more.',
  examples: [
    {
      title: 'Three digests as you type',
      text: 'Each of sha1, md5 and md4 gives a new hash object. Texts are taken in their UTF-8 form.',
      button: 'Type a text',
      run: function (say, card) {
        var hash = window.external.hash;
        Showcase.field(card, 'Tarvik', function (text) {
          return [
            'SHA-1', hash.sha1().addData(text).finish(),
            'MD5', hash.md5().addData(text).finish(),
            'MD4', hash.md4().addData(text).finish()
          ];
        });
      }
    },
    {
      title: 'Piece by piece',
      text: 'addData gives the hash object itself, so calls make a chain. Only the sum of the pieces counts.',
      button: 'Compare',
      run: function (say) {
        var hash = window.external.hash;
        var whole = hash.sha1().addData('one two').finish();
        var pieces = hash.sha1().addData('one').addData(' ').addData('two').finish();
        say(whole + (whole === pieces ? ' both times' : ' is not ' + pieces));
      }
    }
  ]
});
