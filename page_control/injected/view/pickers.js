// Fields whose values the engine offers outside of the frames: for dates, times and colours in a picker, for text in the
// list of suggestions of a `datalist`. The host shows its own. What the user chooses there is chosen once more in the
// engine's picker or list, by keys that the host presses, because only the engine makes trusted events.
const makePickers = (core, post) => {
  const { apply } = Reflect;
  const { stringify } = JSON;
  const { round } = Math;
  const { composedPath, stopImmediatePropagation, preventDefault } = Event.prototype;
  const { cloneNode } = Node.prototype;
  const { matches } = Element.prototype;
  const { dispatchEvent } = EventTarget.prototype;
  const { prototype } = HTMLInputElement;
  const { showPicker } = prototype;
  const { get: getValue, set: setValue } = Object.getOwnPropertyDescriptor(prototype, 'value');
  const FieldEvent = Event;
  const Later = Promise;
  const Names = Array;
  const kPickers = { __proto__: null, date: 1, time: 1, 'datetime-local': 1, month: 1, week: 1, color: 1 };
  const kLists = { __proto__: null, text: 1, search: 1, url: 1, email: 1, tel: 1, number: 1 };
  const kOutcomes = { __proto__: null, input: 1, change: 1 };

  const valueOf = (field) => apply(getValue, field, []);
  const write = (field, value) => apply(setValue, field, [value]);
  const targetOf = (event) => apply(composedPath, event, [])[0];
  const isOpen = (field) => apply(matches, field, [':open']);

  // The options of the field's list that match a text in lower case and are values of the field, each with its label and
  // its row in the engine's list, which also has the others that match.
  const optionsOf = (field, typed) => {
    const sample = apply(cloneNode, field, [false]);
    const options = [];
    let row = 0;
    for (const { value, label, disabled } of field.list?.options ?? []) {
      const isListed = value.toLowerCase().includes(typed) || label.toLowerCase().includes(typed);
      if (!value || disabled || !isListed) continue;
      write(sample, value);
      const isValid = valueOf(sample) === value && sample.validity.valid;
      // Half a surrogate pair is no text for the host.
      if (isValid) options.push([value.toWellFormed(), label === value ? '' : label.toWellFormed(), row]);
      ++row;
    }
    return options;
  };

  const reportPicker = (field) => {
    // Several events may see the same picker open.
    if (!isOpen(field) || core.inDialog === field) return;
    const { type, min, max, step, defaultValue } = field;
    core.fields[++core.requests] = field;
    core.inDialog = field;
    const list = optionsOf(field, '').map(([value]) => value);
    const base = min || defaultValue;
    post('picker:' + stringify({ id: core.requests, type, value: valueOf(field), min, max, step, base, list }));
  };

  const placeOf = (field) => {
    const { left, above, width, height } = inPage(field, field.getBoundingClientRect());
    return [round(left), round(above), round(width), round(height)];
  };
  const hideList = () => {
    if (!core.listed) return;
    delete core.fields[core.listed.id];
    core.listed = null;
    post('suggestions:null');
  };
  const mayList = (field) => field.list && field.ownerDocument.defaultView && kLists[field.type] && !field.disabled &&
    !field.readOnly && apply(matches, field, [':focus']);
  const isStale = ({ id, left, above }) => {
    const field = core.fields[id];
    if (!mayList(field)) return true;
    const [currentLeft, currentAbove] = placeOf(field);
    return currentLeft !== left || currentAbove !== above;
  };
  // Most changes after which the engine closes its list have no event. The timer is the top document's, as the field's
  // frame may be removed.
  const watchList = (listed) => core.setTimer(() => {
    if (core.listed !== listed) return;
    if (isStale(listed)) hideList();
    else watchList(listed);
  }, kWatchInterval);
  const showList = (field, selected) => {
    if (!mayList(field)) return hideList();
    const items = optionsOf(field, valueOf(field).toLowerCase());
    if (!items.length) return hideList();
    if (core.listed) delete core.fields[core.listed.id];
    const [left, above, width, height] = placeOf(field);
    const id = ++core.requests;
    core.fields[id] = field;
    core.listed = { id, left, above };
    core.watchList(core.listed);
    post('suggestions:' + stringify({ id, left, above, width, height, items, selected }));
  };

  const stop = (event) => {
    apply(stopImmediatePropagation, event, []);
    apply(preventDefault, event, []);
  };

  // What the keys of the host cause while a choice is made. The events have the value that the user has chosen, whatever
  // the engine's picker makes of the keys.
  const onOutcome = (event, choice) => {
    const { type } = event;
    const isOutcome = kOutcomes[type];
    if (isOutcome ? targetOf(event) !== choice.field : !event.key) return;
    // A write, even of the same value, may end the engine's wait for a change.
    if (isOutcome && valueOf(choice.field) !== choice.value) write(choice.field, choice.value);
    if (isOutcome && !choice[type]) {
      choice[type] = true;
      choice.resume?.();
    } else {
      choice.isClosed ||= type === 'keydown';  // else the key would not have come here
      stop(event);
    }
  };

  // The engine opens a picker or a list after the page's own listeners.
  const openLater = (field, event) => {
    const { type, key } = event;
    const isArrow = type === 'keydown' && (key === 'ArrowDown' || key === 'ArrowUp');
    core.setTimer(() => {
      if (kPickers[field.type]) reportPicker(field);
      else if (kLists[field.type] && (isArrow || type === 'click') && !event.defaultPrevented)
        showList(field, isArrow ? 0 : -1);
    }, 0);
  };
  const onInput = (event) => {
    if (!event.isTrusted) return;
    if (core.choice) return onOutcome(event, core.choice);
    // The host's, for an engine's picker that was not open yet.
    if (core.inDialog && event.key === 'Escape') return stop(event);
    const field = targetOf(event);
    if (field.localName !== 'input') return;
    if (event.type !== 'input') openLater(field, event);
    else if (kLists[field.type] && valueOf(field)) showList(field, -1);
    else hideList();
  };
  const onLeave = ({ isTrusted, type }) => {
    if (isTrusted && core.listed && (type !== 'scroll' || isStale(core.listed))) hideList();
  };

  prototype.showPicker = new Proxy(showPicker, {
    apply: (original, field, values) => {
      apply(original, field, values);
      if (kPickers[field.type]) reportPicker(field);
      else if (kLists[field.type]) showList(field, -1);
    },
  });

  const press = (keys) => {
    for (const key of keys) post('press:' + key);
  };
  // Waits for an event of the choice, or for the time.
  const outcome = (choice, type, time) => new Later((resolve) => {
    choice.resume = () => { if (choice[type]) resolve(); };
    choice.resume();
    core.setTimer(resolve, time);
  });

  // The engine's picker opens with the value that the field has at that moment.
  const reopen = (field, value, before) => {
    write(field, value);
    apply(showPicker, field, []);
    write(field, before);
  };
  // Any other colour. A digit changes one of the numbers in the picker, after the other elements that have the focus in turn.
  const kColourKeys = ['Tab', '1', 'Tab', '1', 'Tab', '1', 'Tab', '1', 'Tab', '1', 'Enter'];
  const other = (colour) => '#fe' + (colour.slice(3, 5) === '80' ? '40' : '80') + 'fe';

  // The engine ignores an Enter in the first half second of a list.
  const chooseInList = (choice) => {
    if (choice.input) return;
    if (choice.isClosed) apply(showPicker, choice.field, []);
    choice.isClosed = false;
    press(['PageUp', ...new Names(choice.row).fill('ArrowDown'), 'Enter']);
  };

  // One that the engine opened too late for the Escape of the dialog has the value of before.
  const closePicker = async (choice) => {
    for (let i = 0; i < kAttempts && isOpen(choice.field); ++i) {
      press(['Escape']);
      await outcome(choice, 'change', kPickerStart);
    }
  };

  const chooseInPicker = async (choice, before) => {
    const { field, value } = choice;
    const isColour = field.type === 'color';
    if (!isOpen(field) && choice.input) return;
    if (!isOpen(field)) reopen(field, isColour ? other(before) : value, before);
    await outcome(choice, 'input', kPickerStart);
    press(isColour && !choice.input ? kColourKeys : ['Enter']);
  };

  const kAttempts = 10;
  const kWatchInterval = 200;  // milliseconds
  const kPickerStart = 100;
  const kAnswer = 250;

  return {
    listeners: [
      [['click', 'input', 'change', 'keydown', 'keypress', 'keyup'], onInput],
      [['blur', 'scroll', 'resize'], onLeave],
    ],
    watchList,
    pick: async (id, value, row, needsFocus) => {
      const field = core.fields[id];
      // The focus returns from the dialog late, and the engine opens nothing without it.
      if (needsFocus && !document.hasFocus()) return 1;
      delete core.fields[id];
      core.inDialog = null;
      if (core.listed?.id === id) core.listed = null;
      if (!field?.isConnected || field.disabled || field.readOnly) return null;
      const before = valueOf(field);
      const isNew = value !== null && value !== before;
      const choice = core.choice = { __proto__: null, field, value, row };
      try {
        if (kPickers[field.type]) await closePicker(choice);
        else if (!isNew) press(['Escape']);
        for (let i = 0; i < kAttempts && !choice.change && isNew; ++i) {
          if (kLists[field.type]) chooseInList(choice);
          else await chooseInPicker(choice, before);
          await outcome(choice, 'change', kAnswer);
        }
      } catch {
        // A field whose type has been changed meanwhile has no picker.
      }
      core.choice = null;
      if (!isNew) return null;
      if (valueOf(field) !== value) write(field, value);
      for (const type of ['input', 'change']) {
        if (choice[type]) continue;
        apply(dispatchEvent, field, [new FieldEvent(type, { bubbles: true, composed: type === 'input' })]);
      }
      return null;
    },
  };
};
