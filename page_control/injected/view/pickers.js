// Fields for a date, a time or a colour, whose pickers the engine opens outside of the frames. The host shows its own.
const makePickers = (core, post) => {
  const { apply } = Reflect;
  const { stringify } = JSON;
  const { composedPath } = Event.prototype;
  const { matches } = Element.prototype;
  const { dispatchEvent } = EventTarget.prototype;
  const { prototype } = HTMLInputElement;
  const { set: setValue } = Object.getOwnPropertyDescriptor(prototype, 'value');
  const FieldEvent = Event;
  const kTypes = { __proto__: null, date: 1, time: 1, 'datetime-local': 1, month: 1, week: 1, color: 1 };

  const reportIfOpen = (field) => {
    if (field?.localName !== 'input' || !kTypes[field.type] || !apply(matches, field, [':open'])) return;
    const { type, value, min, max } = field;
    core.fields[++core.requests] = field;
    post('picker:' + stringify({ id: core.requests, type, value, min, max }));
  };

  // The engine opens a picker after the page's own listeners.
  const onInput = (event) => {
    if (!event.isTrusted) return;
    const field = apply(composedPath, event, [])[0];
    core.setTimer(() => reportIfOpen(field), 0);
  };

  prototype.showPicker = new Proxy(prototype.showPicker, {
    apply: (showPicker, field, values) => {
      apply(showPicker, field, values);
      reportIfOpen(field);
    },
  });

  return {
    listeners: [[['click', 'keydown', 'keyup'], onInput]],
    pick: (id, value) => {
      const field = core.fields[id];
      delete core.fields[id];
      if (!field || value === null || value === field.value) return;
      apply(setValue, field, [value]);
      for (const type of ['input', 'change'])
        apply(dispatchEvent, field, [new FieldEvent(type, { bubbles: true, composed: type === 'input' })]);
    },
  };
};
