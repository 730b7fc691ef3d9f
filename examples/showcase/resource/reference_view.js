// Shows the members of the plug-ins, below the examples of their page. Showcase.reference is generated from tarvik.d.ts;
// without it, the pages show examples only.
Showcase.referenceView = (function () {
  var element = Showcase.element;

  function show(value) {
    return value === undefined ? 'undefined' : typeof value === 'object' && value !== null ? '[object]' : JSON.stringify(value);
  }

  function run(sample) {
    try {
      new Function('say', sample.run)(function (expression, value) {
        Showcase.write(expression + '  is  ' + show(value));
      });
      if (sample.run === sample.code) Showcase.write('Done.');
    } catch (error) {
      Showcase.write(Showcase.fault(error), 'fault');
    }
  }

  // A sample is { code, run }: the displayed code, and the same code with a call of `say` for each stated value.
  function example(sample) {
    var box = element('div', 'sample');
    var button = element('button', 'run', 'Run');
    button.onclick = function () { run(sample); };
    box.appendChild(Showcase.source(sample.code));
    box.appendChild(button);
    return box;
  }

  function fill(box, item) {
    for (var i = 0; i < (item.forms || []).length; i++) box.appendChild(element('code', 'form', item.forms[i]));
    var details = box.appendChild(element('div', 'details'));
    details.innerHTML = item.details;
    for (var k = 0; k < item.examples.length; k++) box.appendChild(example(item.examples[k]));
  }

  // An expandable row.
  function memberRow(member) {
    var row = element('div', 'member');
    var head = row.appendChild(element('div', 'head'));
    var body = null;
    head.appendChild(element('code', '', member.name));
    head.appendChild(element('span')).innerHTML = member.summary;
    row.toggle = function (open) {
      if (!body) fill(body = row.appendChild(element('div', 'inside')), member);
      row.className = open ? 'member open' : 'member';
    };
    Showcase.press(head, function () { row.toggle(row.className === 'member'); });
    return row;
  }

  function section(plugin, object) {
    var box = element('section', 'object');
    box.appendChild(element('h2', '', object.name === plugin.type ? plugin.name : object.name));
    fill(box, { details: object.details, examples: object.examples });
    for (var i = 0; i < object.members.length; i++) {
      var row = box.appendChild(memberRow(object.members[i]));
      row.id = [plugin.name, object.name, object.members[i].name].join('.');
    }
    return box;
  }

  return {
    plugin: function (name) {
      var all = Showcase.reference;
      for (var i = 0; i < all.length; i++) if (all[i].name === name) return all[i];
      return null;
    },
    show: function (page, name) {
      var plugin = this.plugin(name);
      for (var i = 0; plugin && i < plugin.objects.length; i++) page.appendChild(section(plugin, plugin.objects[i]));
    }
  };
})();
