// Source code with syntax colours.
Showcase.source = (function () {
  // Comment, string, number, word, any other character.
  var tokens = /(\/\/.*)|('(?:[^'\\\n]|\\.)*'|"(?:[^"\\\n]|\\.)*")|(\b\d[\w.]*)|([A-Za-z_$][\w$]*)|([\s\S])/g;
  var keywords = ' var function return if else for while do new typeof try catch throw delete in this true false null ' +
    'undefined switch case break continue ';

  function typeOf(match) {
    if (match[1]) return 'comment';
    if (match[2]) return 'string';
    if (match[3]) return 'number';
    return match[4] && keywords.indexOf(' ' + match[4] + ' ') >= 0 ? 'keyword' : '';
  }

  return function (code) {
    var pre = document.createElement('pre');
    code.replace(tokens, function () {
      var type = typeOf(arguments);
      /** @type {Node} */
      var node = document.createTextNode(arguments[0]);
      if (type) {
        var word = document.createElement('span');
        word.className = type;
        word.appendChild(node);
        node = word;
      }
      pre.appendChild(node);
      return '';
    });
    return pre;
  };
})();
