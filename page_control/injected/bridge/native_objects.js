// Native objects in script: the handlers of their proxies. `records` maps a proxy to its record: { id, methods, owner,
// name, shape, proxy, listed }.
const makeHandlers = (exchange, records, { encodeText, encode, encodeAll }, intrinsics) => {
  const { bind, toPrimitive, objectPrototype, newMap } = intrinsics;

  // The methods of the objects that were read from `external` under one name: they share an implementation.
  const shapes = newMap();

  const callMember = (id, name, ...values) => exchange('call', id + ',' + name + ',' + encodeAll(values));

  const bound = (record, name) => bind(callMember, record.proxy, record.id, encodeText(name));

  const method = (record, name) => {
    const call = bound(record, name);
    record.methods.set(name, call);
    record.shape?.set(name, true);
    return call;
  };

  // Notes where an object was read: calling it there calls the member.
  const adoptChild = (record, name, child) => {
    child.owner = record;
    child.name = encodeText(name);
    if (record.id !== kExternal) return;
    if (!shapes.has(name)) shapes.set(name, newMap());
    child.shape = shapes.get(name);
  };

  const readMember = (record, name) => {
    const known = record.methods.get(name);
    if (known) return known;
    // Reading `push` of a native array would already push.
    if (name === 'push' || record.shape?.has(name)) return method(record, name);
    const value = exchange('get', record.id + ',' + encodeText(name));
    if (value === kMethod) return method(record, name);
    if (value === kMethodThisTime) return bound(record, name);
    const child = records.get(value);
    if (child) adoptChild(record, name, child);
    return value;
  };

  const readDefault = (record) => (hint) => {
    try {
      return exchange('default', record.id);
    } catch {
      return hint === 'number' ? NaN : '[object]';
    }
  };

  const has = (record, name) => typeof name === 'string' && exchange('has', record.id + ',' + encodeText(name));

  const write = (record, name, value) => {
    if (typeof name !== 'string') return false;
    record.listed = null;
    exchange('put', record.id + ',' + encodeText(name) + ',' + encode(value));
    // A member that can be written is not a method, though it may have read as empty before.
    record.methods.remove(name);
    record.shape?.remove(name);
    return true;
  };

  const remove = (record, name) => {
    if (typeof name !== 'string') return false;
    record.listed = null;
    return exchange('delete', record.id + ',' + encodeText(name));
  };

  const list = (record) => {
    const names = exchange('keys', record.id);
    record.listed = newMap();
    for (let i = 0; i < names.length; ++i) record.listed.set(names[i], true);
    return names;
  };

  // An enumeration requests the descriptor of each listed name once, to skip deleted members. A name that has just been
  // listed needs no call to the host, and its value is read only on access.
  const describe = (record, name) => {
    if (!record.listed?.remove(name) && !has(record, name)) return undefined;
    return {
      __proto__: null, enumerable: true, configurable: true,
      get: () => readMember(record, name),
      set: (value) => { write(record, name, value); },
    };
  };

  return (record) => ({
    __proto__: null,
    get: (target, name) => {
      if (typeof name === 'string') return readMember(record, name);
      return name === toPrimitive ? readDefault(record) : undefined;
    },
    set: (target, name, value) => write(record, name, value),
    defineProperty: (target, name, description) => write(record, name, description.value),
    has: (target, name) => has(record, name),
    deleteProperty: (target, name) => remove(record, name),
    ownKeys: () => list(record),
    getOwnPropertyDescriptor: (target, name) => describe(record, name),
    getPrototypeOf: () => objectPrototype,
    setPrototypeOf: () => false,
    preventExtensions: () => false,
    apply: (target, self, values) => {
      const isMember = record.owner && records.get(self) === record.owner;
      return exchange('call', (isMember ? record.owner.id + ',' + record.name : record.id + ',null') + ',' + encodeAll(values));
    },
  });
};
