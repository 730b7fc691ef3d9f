// Native objects in script: what their proxies do. `records` knows the record of a proxy: { id, methods, owner, name,
// shape, proxy, listed }.
const makeHandlers = (exchange, records, { encodeText, encode, encodeAll }, own) => {
  const { bind, toPrimitive, objectPrototype, newMap } = own;

  // What is known of objects that were read from `external` under one name: they come from one maker.
  const shapes = newMap();

  const callMember = (id, name, ...values) => exchange('call', id + ',' + name + ',' + encodeAll(values));

  const bound = (record, name) => bind(callMember, record.proxy, record.id, encodeText(name));

  const method = (record, name) => {
    const call = bound(record, name);
    record.methods.set(name, call);
    record.shape?.set(name, true);
    return call;
  };

  // Takes note of where an object was read: a call of it there is a call of that member.
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
    // Reading this one of a native array would already push.
    if (name === 'push' || record.shape?.has(name)) return method(record, name);
    const value = exchange('get', record.id + ',' + encodeText(name));
    if (value === kMethod) return method(record, name);
    if (value === kPerhapsMethod) return bound(record, name);
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
    // What could be written is no method, though it may have read as empty before.
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

  // An enumeration asks for the description of each name that it was given, once, and wants to know whether it is still
  // there. It gets that for nothing; the value is read when somebody wants it.
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
