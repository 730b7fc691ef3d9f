// The page's end of the bridge between script and native objects. It runs in every frame of a page before the page's
// own script. The core lives in the top document; frames that may touch it use the same one.
//
// To the host: the binding takes JSON arrays, [operation, ...]. Calls that want an answer park the page on the
// `debugger` statement in take(). To the page: the host evaluates put(drops, kind, ...). If the page is parked, that is an
// item for the innermost parked call: its answer, or something to run meanwhile. If the page is idle, it runs at once
// and the result is the evaluation's.
//
// Values to the host: primitives as JSON, everything else as a tagged array: ["u"] undefined, ["n", text] a number
// that JSON cannot write, ["s", units] a string that is not well-formed, ["o", id] a native object, ["f", number] a
// script object. From the host they are JavaScript, with ["o", id], ["f", number], ["d", milliseconds], ["a", values].
//
// Pages may replace what they like of the language's own objects, so what is needed later is taken aside first.
((bindingName, coreName) => {
  'use strict';
  const binding = window[bindingName];
  delete window[bindingName];

  let core;
  try {
    core = window.top[coreName];
  } catch {
    // A frame from somewhere else gets nothing.
  }
  if (window !== window.top) {
    if (core) core.adopt(window);
    return;
  }
  if (core || !binding) return;

  const { stringify } = JSON;
  const { charCodeAt, isWellFormed } = String.prototype;
  const { apply, construct } = Reflect;
  const { is, defineProperty } = Object;
  const { isInteger } = Number;
  const globalEval = eval;
  const setTimer = setTimeout;
  const report = reportError;

  // Maps whose methods nobody else can replace.
  const makeMap = (base) => {
    const { get, set, has, delete: remove } = base.prototype;
    return (map = new base()) => ({
      get: (key) => apply(get, map, [key]),
      set: (key, value) => apply(set, map, [key, value]),
      has: (key) => apply(has, map, [key]),
      remove: (key) => apply(remove, map, [key]),
    });
  };
  const newMap = makeMap(Map);
  const newWeakMap = makeMap(WeakMap);

  // ---- Values -------------------------------------------------------------------------------------------------------

  const kWindow = 0;    // the number of the page's global object
  const kExternal = 0;  // the id of `external`

  // Script objects that native code holds: a number each, with the count of references it was given.
  const numberOf = newWeakMap();
  const held = newMap();
  let lastNumber = kWindow;

  // Native objects that script holds: a proxy each, with the count of references that came.
  const recordOf = newWeakMap();
  const natives = newMap();

  const encodeText = (text) => {
    if (apply(isWellFormed, text, [])) return stringify(text);
    let units = '';
    for (let i = 0; i < text.length; ++i) units += (i ? ',' : '') + apply(charCodeAt, text, [i]);
    return '["s",[' + units + ']]';
  };

  const encodeObject = (object) => {
    const record = recordOf.get(object);
    if (record) return '["o",' + record.id + ']';
    if (object === window) return '["f",0]';
    let number = numberOf.get(object);
    const entry = number && held.get(number);
    if (entry) {
      ++entry.count;
    } else {
      number = ++lastNumber;
      numberOf.set(object, number);
      held.set(number, { object, count: 1 });
    }
    return '["f",' + number + ']';
  };

  const encode = (value) => {
    switch (typeof value) {
      case 'string': return encodeText(value);
      case 'boolean': return value ? 'true' : 'false';
      case 'number':
        return value - value !== 0 || is(value, -0) ? '["n","' + (is(value, -0) ? '-0' : value) + '"]' : '' + value;
      case 'object': return value === null ? 'null' : encodeObject(value);
      case 'function': return encodeObject(value);
      case 'bigint': return encode(Number(value));
      default: return '["u"]';
    }
  };

  const encodeAll = (values) => {
    let text = '';
    for (let i = 0; i < values.length; ++i) text += (i ? ',' : '') + encode(values[i]);
    return '[' + text + ']';
  };

  const decode = (value) => {
    if (typeof value !== 'object' || value === null) return value;
    switch (value[0]) {
      case 'o': return nativeObject(value[1]);
      case 'f': return scriptObject(value[1]);
      case 'd': return new Date(value[1]);
      default: return decodeAll(value[1]);
    }
  };

  const decodeAll = (values) => {
    const decoded = [];
    for (let i = 0; i < values.length; ++i) defineProperty(decoded, i, {
      value: decode(values[i]), writable: true, enumerable: true, configurable: true,
    });
    return decoded;
  };

  const scriptObject = (number) => number === kWindow ? window : held.get(number)?.object;

  // ---- Calls to the host --------------------------------------------------------------------------------------------

  const kMethod = {};       // the answer to a read of something that must be called
  const kEmptyTurns = 50;   // where `debugger` does not park, a call gives up instead of turning for ever
  const inbox = { __proto__: null };
  let first = 0;            // of the items in the inbox
  let last = 0;
  let parked = false;
  let lastCall = 0;

  const post = (...parts) => {
    let text = '';
    for (let i = 0; i < parts.length; ++i) text += (i ? ',' : '') + parts[i];
    binding('[' + text + ']');
  };

  const take = () => {
    for (let turns = 0; first === last; ++turns) {
      if (turns > kEmptyTurns) throw new Error('Native objects cannot be reached at this moment.');
      parked = true;
      debugger;
      parked = false;
    }
    const item = inbox[first];
    delete inbox[first++];
    return item;
  };

  const nativeError = (number, message) => {
    const error = new Error(message);
    error.number = number;
    error.description = message;
    return error;
  };

  // Sends a call and runs what the host asks for until the answer is there. Whatever else has arrived by then is run
  // before script goes on: nobody would look at it later.
  const exchange = (operation, ...parts) => {
    const call = ++lastCall;
    post('"' + operation + '"', call, ...parts);
    let answer;
    do {
      const item = take();
      if (item.kind === 'run') post('"result"', item.id, outcome(item), answer ? 'false' : 'true');
      else if (item.id === call) answer = item;
    } while (!answer || first !== last);
    if (answer.kind === 'error') throw nativeError(answer.number, answer.message);
    return answer.kind === 'method' ? kMethod : answer.value;
  };

  // ---- What the host runs -------------------------------------------------------------------------------------------

  // Each takes (object, name or this, arguments) as decoded.
  const tasks = {
    __proto__: null,
    eval: (object, text) => globalEval(text),
    call: (object, self, values) => apply(object, self, values),
    new: (object, name, values) => construct(object, values),
    member: (object, name, values) => {
      const member = object[name];
      // A property that is called without arguments is read: native callers may mean either.
      return typeof member === 'function' || values.length ? apply(member, object, values) : member;
    },
    get: (object, name) => object[name],
    // What a look-up of a name needs: nothing, or the value that will be asked for next.
    find: (object, name) => name in object ? object[name] : kMethod,
    set: (object, name, values) => { object[name] = values[0]; },
    delete: (object, name) => delete object[name],
    keys: (object) => {
      const names = [];
      for (const name in object) names[names.length] = name;
      return names.join('\0');
    },
    text: (object) => typeof object === 'function' ? '' + object : object + '',
  };

  // Anything can be thrown, also what cannot be looked at.
  const failure = (error, quiet) => {
    if (!quiet) report(error);
    let number = 0;
    let message = 'Script error';
    try {
      const isObject = typeof error === 'object' && error !== null;
      if (isObject && isInteger(error.number)) number = error.number;
      message = encodeText('' + (isObject && 'message' in error ? error.message : error));
    } catch {
      message = encodeText(message);
    }
    return '["error",' + number + ',' + message + ']';
  };

  const outcome = (task) => {
    try {
      const value = tasks[task.name](task.object, task.member, task.values);
      return value === kMethod ? '["none"]' : '["value",' + encode(value) + ']';
    } catch (error) {
      return failure(error, task.quiet);
    }
  };

  // ---- Native objects in script -------------------------------------------------------------------------------------

  const finalized = new FinalizationRegistry((id) => {
    const entry = natives.get(id);
    if (!entry || entry.proxy.deref()) return;
    natives.remove(id);
    post('"release"', id, entry.count);
  });

  // What is known of objects that were read from `external` under one name: they come from one maker.
  const shapes = newMap();

  const method = (record, name) => {
    const call = (...values) => exchange('call', record.id, encodeText(name), encodeAll(values));
    record.methods.set(name, call);
    record.shape?.set(name, true);
    return call;
  };

  const readMember = (record, name) => {
    const known = record.methods.get(name);
    if (known) return known;
    // Reading this one of a native array would already push.
    if (name === 'push' || record.shape?.has(name)) return method(record, name);
    const value = exchange('get', record.id, encodeText(name));
    if (value === kMethod) return method(record, name);
    const child = (typeof value === 'function' || typeof value === 'object') && value && recordOf.get(value);
    if (child) {
      child.owner = record;
      child.name = name;
      if (record.id === kExternal) {
        if (!shapes.has(name)) shapes.set(name, newMap());
        child.shape = shapes.get(name);
      }
    }
    return value;
  };

  const primitive = (record) => (hint) => {
    try {
      return exchange('default', record.id);
    } catch {
      return hint === 'number' ? NaN : '[object]';
    }
  };

  const handlerFor = (record) => ({
    __proto__: null,
    get: (target, name) => {
      if (typeof name === 'string') return readMember(record, name);
      return name === Symbol.toPrimitive ? primitive(record) : undefined;
    },
    set: (target, name, value) => {
      if (typeof name !== 'string') return false;
      exchange('put', record.id, encodeText(name), encode(value));
      return true;
    },
    has: (target, name) => typeof name === 'string' && exchange('has', record.id, encodeText(name)),
    deleteProperty: (target, name) =>
      typeof name === 'string' && exchange('delete', record.id, encodeText(name)),
    ownKeys: () => {
      const names = exchange('keys', record.id);
      return names ? names.split('\0') : [];
    },
    getOwnPropertyDescriptor: (target, name) => {
      if (typeof name !== 'string' || !exchange('has', record.id, encodeText(name))) return undefined;
      return { value: readMember(record, name), writable: true, enumerable: true, configurable: true };
    },
    getPrototypeOf: () => Object.prototype,
    setPrototypeOf: () => false,
    preventExtensions: () => false,
    defineProperty: (target, name, description) => {
      exchange('put', record.id, encodeText(name), encode(description.value));
      return true;
    },
    // A call of what was just read from another object is a call of that object's member.
    apply: (target, self, values) => record.owner && recordOf.get(self) === record.owner
      ? exchange('call', record.owner.id, encodeText(record.name), encodeAll(values))
      : exchange('call', record.id, 'null', encodeAll(values)),
  });

  const nativeObject = (id) => {
    const entry = natives.get(id);
    const there = entry?.proxy.deref();
    if (entry) ++entry.count;
    if (there) return there;
    const record = { __proto__: null, id, methods: newMap(), owner: null, name: '', shape: null };
    const proxy = new Proxy(() => {}, handlerFor(record));
    recordOf.set(proxy, record);
    natives.set(id, { proxy: new WeakRef(proxy), count: entry ? entry.count : 1 });
    finalized.register(proxy, id);
    return proxy;
  };

  // ---- The window ---------------------------------------------------------------------------------------------------

  const external = nativeObject(kExternal);

  // Frames of a page keep the engine's own open(); everything else is for the host to decide.
  const opener = (own, view) => function open(address, name) {
    const target = name === undefined ? '' : '' + name;
    const isFrame = target === '_self' || target === '_top' || target === '_parent' || (target && view.frames[target]);
    if (isFrame) return apply(own, view, [address, name]);
    exchange('open', encodeText(new URL(address === undefined ? '' : address, view.document.baseURI).href));
    return null;
  };

  const onContextMenu = (event) => {
    // After the page's own listeners, which may have a menu of their own.
    const element = event.composedPath()[0];
    setTimer(() => {
      if (!event.defaultPrevented) post('"menu"', event.screenX, event.screenY, encode(element));
    });
  };

  const adopt = (view) => {
    const define = (name, value) => defineProperty(view, name, {
      value, writable: true, enumerable: true, configurable: true,
    });
    define('external', external);
    define('open', opener(view.open, view));
    define('close', () => { post('"close"'); });
    view.addEventListener('contextmenu', onContextMenu, true);
    view.addEventListener('mousedown', (event) => {
      if (listening) post('"mousedown"', event.button);
    }, true);
  };

  let listening = false;

  // ---- The host's way in --------------------------------------------------------------------------------------------

  // Items, made of put()'s arguments. Values are decoded on arrival: with the same message native code may drop what
  // they name.
  const items = {
    __proto__: null,
    value: (id, value) => ({ __proto__: null, kind: 'value', id, value: decode(value) }),
    method: (id) => ({ __proto__: null, kind: 'method', id }),
    error: (id, number, message) => ({ __proto__: null, kind: 'error', id, number, message }),
    run: (id, name, object, member, values, quiet) => ({
      __proto__: null, kind: 'run', id, name, object: decode(object), member: decode(member), values: decodeAll(values),
      quiet,
    }),
    listen: () => { listening = true; },
    nothing: () => undefined,
  };

  // drops: numbers of script objects and how many of their references are no longer needed, one after the other.
  const put = (drops, kind, ...parts) => {
    const item = items[kind](...parts);
    for (let i = 0; i < drops.length; i += 2) {
      const entry = held.get(drops[i]);
      if (entry && (entry.count -= drops[i + 1]) <= 0) held.remove(drops[i]);
    }
    if (item && parked) {
      inbox[last++] = item;
      return 'queued';
    }
    return item?.kind === 'run' ? outcome(item) : '';
  };

  defineProperty(window, coreName, { value: { __proto__: null, adopt, put } });
  adopt(window);
  exchange('start');
})
