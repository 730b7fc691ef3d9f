Showcase.add({
  title: 'Hashes',
  icon: 'hash',
  group: 'Data and network',
  plugins: ['hash'],
  intro: 'The plug-in "hash" computes digests of texts. Use them to compare and to identify data; none of its algorithms ' +
    'is secure any more.',
  examples: [
    {
      title: 'Three digests as you type',
      text: 'sha1, md5 and md4 each return a new digest. Texts are added as UTF-8.',
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
      title: 'In several steps',
      text: 'addData returns the digest itself, so calls can be chained. It makes no difference how the text is split.',
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
