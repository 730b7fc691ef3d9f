// What the host has run. Each takes (object, name or this, arguments) and gives an outcome as JSON.
const makeTasks = (values, own) => {
  const { encodeText, encode, isEncodable } = values;
  const { apply, construct, ownKeys, hasOwn, getOwnPropertyDescriptor, getPrototypeOf, objectPrototype } = own;
  const globalEval = own.eval;

  const kFewNames = 64;
  const kManyElements = 1000;  // of an array whose length is asked for, and then as a rule its elements
  const kShortText = 4096;

  const outcome = (value) => '["value",' + encode(value) + ']';

  const isObject = (value) => typeof value === 'function' || (typeof value === 'object' && value !== null);

  // Whether an object has no members but its own, and those that all objects are born with.
  const isPlain = (object) => {
    const prototype = getPrototypeOf(object);
    return prototype === null ||
        (prototype === objectPrototype && ownKeys(objectPrototype).length === own.commonNames.length);
  };

  // Values that can be had without running script, and that are worth to be sent when perhaps nobody wants them.
  const isAtHand = (description) => description && hasOwn(description, 'value') && isEncodable(description.value) &&
      !(typeof description.value === 'string' && description.value.length > kShortText);

  // All that an object of few members says for a name: who asks for one will ask for the next. Nothing if that leaves open
  // whether there is such a name.
  const tellAll = (object, name) => {
    if (typeof object !== 'object' || object === window) return '';
    const names = ownKeys(object);
    if (names.length > (name === 'length' ? kManyElements : kFewNames)) return '';
    const plain = isPlain(object);
    if (!hasOwn(object, name) && (!plain || name in object)) return '';
    let told = '';
    for (let i = 0; i < names.length; ++i) {
      if (typeof names[i] !== 'string') continue;
      const isKnown = isAtHand(getOwnPropertyDescriptor(object, names[i]));
      told += ',' + encodeText(names[i]) + ',' + (isKnown ? encode(object[names[i]]) : '["?"]');
    }
    return '["all",' + plain + told + ']';
  };

  const tellOne = (object, name) => {
    if (!(name in object)) return '["none"]';
    const value = object[name];
    return isObject(value) ? '["found"]' : outcome(value);
  };

  return {
    __proto__: null,
    eval: (object, text) => outcome(globalEval(text)),
    call: (object, self, values) => outcome(apply(object, self, values)),
    new: (object, name, values) => outcome(construct(object, values)),
    member: (object, name, values) => {
      const member = object[name];
      // A property that is called without arguments is read: native callers may mean either.
      return outcome(typeof member === 'function' || values.length ? apply(member, object, values) : member);
    },
    get: (object, name) => outcome(object[name]),
    // A look-up of a name brings its value, which will be asked for next.
    find: (object, name) => tellAll(object, name) || tellOne(object, name),
    look: tellOne,
    set: (object, name, values) => outcome(void (object[name] = values[0])),
    delete: (object, name) => outcome(delete object[name]),
    keys: (object) => {
      let names = '';
      for (const name in object) names += ',' + encodeText(name);
      return '["names"' + names + ']';
    },
    text: (object) => outcome('' + object),
  };
};
