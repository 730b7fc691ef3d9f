// What the host can run in the page. Each task takes (object, name or this, arguments) and returns its outcome as JSON.
const makeTasks = (values, intrinsics) => {
  const { encodeText, encode, isEncodable } = values;
  const { apply, construct, ownKeys, hasOwn, getOwnPropertyDescriptor, getPrototypeOf, objectPrototype } = intrinsics;
  const globalEval = intrinsics.eval;

  const kFewNames = 64;
  const kManyElements = 1000;  // of an array whose length is read: its elements are usually read next
  const kShortText = 4096;

  const outcome = (value) => '["value",' + encode(value) + ']';

  const isObject = (value) => typeof value === 'function' || (typeof value === 'object' && value !== null);

  // Whether an object has only its own members and those of an unchanged Object.prototype.
  const isPlain = (object) => {
    const prototype = getPrototypeOf(object);
    return prototype === null ||
        (prototype === objectPrototype && ownKeys(objectPrototype).length === intrinsics.commonNames.length);
  };

  // Values that can be read without running script and are small enough to send unasked.
  const isPrefetchable = (description) => description && hasOwn(description, 'value') && isEncodable(description.value) &&
      !(typeof description.value === 'string' && description.value.length > kShortText);

  // All members of a small object in reply to a look-up of one name: a caller that reads one usually reads the next.
  // Empty if that would not say whether the name exists.
  const describeAll = (object, name) => {
    if (typeof object !== 'object' || object === window) return '';
    const names = ownKeys(object);
    if (names.length > (name === 'length' ? kManyElements : kFewNames)) return '';
    const plain = isPlain(object);
    if (!hasOwn(object, name) && (!plain || name in object)) return '';
    let members = '';
    for (let i = 0; i < names.length; ++i) {
      if (typeof names[i] !== 'string') continue;
      const isKnown = isPrefetchable(getOwnPropertyDescriptor(object, names[i]));
      members += ',' + encodeText(names[i]) + ',' + (isKnown ? encode(object[names[i]]) : '["?"]');
    }
    return '["members",' + plain + members + ']';
  };

  const describeOne = (object, name) => {
    if (!(name in object)) return '["absent"]';
    const value = object[name];
    return isObject(value) ? '["present"]' : outcome(value);
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
    // A look-up of a name returns its value, which is usually read next.
    find: (object, name) => describeAll(object, name) || describeOne(object, name),
    findOne: describeOne,
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
