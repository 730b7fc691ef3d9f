// The page's end of the bridge between script and native objects. It runs in every frame of a page before the page's
// own script. The core lives in the top document; frames that may touch it use the same one.
//
// To the host: the binding takes JSON arrays, [operation, ...]. Calls that want an answer park the page on a `debugger`
// statement. To the page: the host evaluates put(drops, kind, ...). If the page is parked, that is an item for the
// innermost parked call: its answer, or something to run meanwhile. If the page is idle, it runs at once and the result
// is the evaluation's.
//
// A pause costs by the frames of the stack and the variables around each, which the engine lists for every one of
// them: what stands on the stack while the page is parked has little around it, and bound functions have no frame.
//
// Pages may replace what they like of the language's own objects, so what is needed later is taken aside first.
((bindingName, coreName) => {
  'use strict';
  const kMethod = {};  // the answer to a read of what must be called; of a look-up, that there is no such name
  const kFound = {};   // of a look-up, that there is an object of that name

  // ---- Calls to the host ----------------------------------------------------------------------------------------------

  // `run` does what the host wants meanwhile and gives its outcome as JSON.
  const makeCalls = (binding, run) => {
    const kEmptyTurns = 50;  // where `debugger` does not park, a call gives up instead of turning for ever
    const inbox = { __proto__: null };
    let first = 0;
    let last = 0;
    let parked = false;
    let calls = 0;
    const answers = { __proto__: null };  // one for a call further out may come while a call made since waits

    const fail = (number, message) => {
      const error = new Error(message);
      error.number = number;
      error.description = message;
      throw error;
    };

    // Sends a call and runs what the host asks for until the answer is there. Whatever else has arrived by then is run
    // before script goes on: nobody would look at it later.
    const exchange = (operation, parts) => {
      const call = ++calls;
      binding('["' + operation + '",' + call + (parts ? ',' + parts : '') + ']');
      let answer;
      do {
        for (let turns = 0; first === last; ++turns) {
          if (turns > kEmptyTurns) fail(0, 'Native objects cannot be reached at this moment.');
          parked = true;
          debugger;
          parked = false;
        }
        const item = inbox[first];
        delete inbox[first++];
        const result = item.kind === 'run' && run(item);
        if (!result) answers[item.id] = item;
        answer = answers[call];
        const waits = !answer && first === last;
        if (result) binding('["result",' + item.id + ',' + result + ',' + waits + ']');
      } while (!answer || first !== last);
      delete answers[call];
      if (answer.kind === 'error') fail(answer.number, answer.message);
      return answer.kind === 'method' ? kMethod : answer.value;
    };

    // False if no call is parked.
    const deliver = (item) => {
      if (parked) inbox[last++] = item;
      return parked;
    };

    return { exchange, deliver };
  };

  // ---- Native objects in script ---------------------------------------------------------------------------------------

  // `records` knows the record of a proxy: { id, methods, owner, name, shape }.
  const makeHandlers = (exchange, records, encodeText, encode, encodeAll, newMap) => {
    const kExternal = 0;

    // What is known of objects that were read from `external` under one name: they come from one maker.
    const shapes = newMap();

    const callMember = (id, name, ...values) => exchange('call', id + ',' + name + ',' + encodeAll(values));

    const method = (record, name) => {
      const call = callMember.bind(record.proxy, record.id, encodeText(name));
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
      const child = (typeof value === 'function' || typeof value === 'object') && value && records.get(value);
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
      exchange('put', record.id + ',' + encodeText(name) + ',' + encode(value));
      return true;
    };

    return (record) => ({
      __proto__: null,
      get: (target, name) => {
        if (typeof name === 'string') return readMember(record, name);
        return name === Symbol.toPrimitive ? readDefault(record) : undefined;
      },
      set: (target, name, value) => write(record, name, value),
      defineProperty: (target, name, description) => write(record, name, description.value),
      has: (target, name) => has(record, name),
      deleteProperty: (target, name) =>
        typeof name === 'string' && exchange('delete', record.id + ',' + encodeText(name)),
      ownKeys: () => {
        const names = exchange('keys', record.id);
        return names ? names.split('\0') : [];
      },
      getOwnPropertyDescriptor: (target, name) => has(record, name)
        ? { value: readMember(record, name), writable: true, enumerable: true, configurable: true }
        : undefined,
      getPrototypeOf: () => Object.prototype,
      setPrototypeOf: () => false,
      preventExtensions: () => false,
      apply: (target, self, values) => record.owner && records.get(self) === record.owner
        ? callMember(record.owner.id, record.name, ...values)
        : callMember(record.id, 'null', ...values),
    });
  };

  // ---- What the host has run ------------------------------------------------------------------------------------------

  // Each takes (object, name or this, arguments).
  const makeTasks = (apply, construct, globalEval) => ({
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
    // A look-up of a name brings its value, which will be asked for next, if it is no object.
    find: (object, name) => {
      if (!(name in object)) return kMethod;
      const value = object[name];
      return typeof value === 'function' || (typeof value === 'object' && value) ? kFound : value;
    },
    set: (object, name, values) => { object[name] = values[0]; },
    delete: (object, name) => delete object[name],
    keys: (object) => {
      let names = '';
      for (const name in object) names += (names ? '\0' : '') + name;
      return names;
    },
    text: (object) => '' + object,
  });

  // ---- The core -------------------------------------------------------------------------------------------------------

  const makeCore = (binding) => {
    const { stringify } = JSON;
    const { charCodeAt, isWellFormed } = String.prototype;
    const { apply, construct } = Reflect;
    const { is, defineProperty } = Object;
    const { isInteger } = Number;
    const setTimer = setTimeout;
    const report = reportError;
    const tasks = makeTasks(apply, construct, eval);

    // Maps whose methods nobody can replace.
    const makeMap = (Base) => {
      const { get, set, has, delete: remove } = Base.prototype;
      return (map = new Base()) => ({
        get: (key) => apply(get, map, [key]),
        set: (key, value) => apply(set, map, [key, value]),
        has: (key) => apply(has, map, [key]),
        remove: (key) => apply(remove, map, [key]),
      });
    };
    const newMap = makeMap(Map);
    const newWeakMap = makeMap(WeakMap);

    // Values to the host: primitives as JSON, everything else as a tagged array: ["u"] undefined, ["n", text] a number
    // that JSON cannot write, ["s", units] a string that is not well-formed, ["o", id] a native object, ["f", number]
    // a script object. From the host they are JavaScript, with ["o", id], ["f", number], ["d", milliseconds] and
    // ["a", values].
    const kWindow = 0;    // the number of the page's global object
    const kExternal = 0;  // the id of `external`

    // Script objects that native code holds: a number each, with the count of references it was given.
    const numberOf = newWeakMap();
    const held = newMap();
    let lastNumber = kWindow;

    // Native objects that script holds: a proxy each, with the count of references that came.
    const records = newWeakMap();
    const natives = newMap();

    const encodeText = (text) => {
      if (apply(isWellFormed, text, [])) return stringify(text);
      let units = '';
      for (let i = 0; i < text.length; ++i) units += (i ? ',' : '') + apply(charCodeAt, text, [i]);
      return '["s",[' + units + ']]';
    };

    const encodeObject = (object) => {
      const record = records.get(object);
      if (record) return '["o",' + record.id + ']';
      if (object === window) return '["f",' + kWindow + ']';
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

    const encodeNumber = (value) => {
      if (is(value, -0)) return '["n","-0"]';
      return value - value === 0 ? '' + value : '["n","' + value + '"]';
    };

    const encode = (value) => {
      switch (typeof value) {
        case 'string': return encodeText(value);
        case 'boolean': return value ? 'true' : 'false';
        case 'number': return encodeNumber(value);
        case 'bigint': return encodeNumber(Number(value));
        case 'object': return value === null ? 'null' : encodeObject(value);
        case 'function': return encodeObject(value);
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
        case 'f': return value[1] === kWindow ? window : held.get(value[1])?.object;
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

    const run = (task) => {
      try {
        const value = tasks[task.name](task.object, task.member, task.values);
        if (value === kMethod) return '["none"]';
        return value === kFound ? '["found"]' : '["value",' + encode(value) + ']';
      } catch (error) {
        return failure(error, task.quiet);
      }
    };

    const { exchange, deliver } = makeCalls(binding, run);
    const handlerFor = makeHandlers(exchange, records, encodeText, encode, encodeAll, newMap);

    const finalized = new FinalizationRegistry((id) => {
      const entry = natives.get(id);
      if (!entry || entry.proxy.deref()) return;
      natives.remove(id);
      binding('["release",' + id + ',' + entry.count + ']');
    });

    const nativeObject = (id) => {
      const entry = natives.get(id);
      const there = entry?.proxy.deref();
      if (entry) ++entry.count;
      if (there) return there;
      const record = { __proto__: null, id, methods: newMap(), owner: null, name: '', shape: null, proxy: null };
      const proxy = new Proxy(() => {}, handlerFor(record));
      record.proxy = proxy;  // a method that was taken from it keeps it
      records.set(proxy, record);
      natives.set(id, { proxy: new WeakRef(proxy), count: entry ? entry.count : 1 });
      finalized.register(proxy, id);
      return proxy;
    };

    // ---- The window

    const external = nativeObject(kExternal);
    let listening = false;  // somebody native wants to hear of mouse buttons

    // Frames of a page keep the engine's own open(); everything else is for the host to decide.
    const makeOpen = (own, view) => function open(address, name) {
      const target = name === undefined ? '' : '' + name;
      const isFrame = target === '_self' || target === '_top' || target === '_parent' || (target && view.frames[target]);
      if (isFrame) return apply(own, view, [address, name]);
      exchange('open', encodeText(new URL(address === undefined || address === '' ? 'about:blank' : address, view.document.baseURI).href));
      return null;
    };

    const onContextMenu = (event) => {
      // After the page's own listeners, which may have a menu of their own.
      const element = event.composedPath()[0];
      setTimer(() => {
        if (event.defaultPrevented) return;
        binding('["menu",' + event.screenX + ',' + event.screenY + ',' + encode(element) + ']');
      });
    };

    const onMouseDown = () => {
      if (listening) binding('["mousedown"]');
    };

    const adopt = (view) => {
      const define = (name, value) => defineProperty(view, name, {
        value, writable: true, enumerable: true, configurable: true,
      });
      define('external', external);
      define('open', makeOpen(view.open, view));
      if (view === window) define('close', () => binding('["close"]'));
      // While one of the host's dialogs is open the page can be called; while one of the engine's is, it could not.
      const ask = (type) => (message, proposal) =>
        exchange('dialog', type + ',' + encodeText(message === undefined ? '' : '' + message) + ',' +
            encodeText(proposal === undefined ? '' : '' + proposal));
      define('alert', ask('"alert"'));
      define('confirm', ask('"confirm"'));
      define('prompt', ask('"prompt"'));
      view.addEventListener('contextmenu', onContextMenu, true);
      view.addEventListener('mousedown', onMouseDown, true);
    };

    // ---- The host's way in

    // Items, made of put()'s arguments. Values are decoded on arrival: with the same message native code may drop what
    // they name.
    const items = {
      __proto__: null,
      value: (id, value) => ({ __proto__: null, kind: 'value', id, value: decode(value) }),
      method: (id) => ({ __proto__: null, kind: 'method', id }),
      error: (id, number, message) => ({ __proto__: null, kind: 'error', id, number, message }),
      run: (id, name, object, member, values, quiet) => ({
        __proto__: null, kind: 'run', id, name, object: decode(object), member: decode(member),
        values: decodeAll(values), quiet,
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
      if (!item) return '';
      if (deliver(item)) return 'queued';
      return item.kind === 'run' ? run(item) : '';
    };

    defineProperty(window, coreName, { value: { __proto__: null, adopt, put } });
    adopt(window);
    // The engine remembers how the last parked call was told to go on, and with that in mind stops nowhere in the next
    // document of its process. This makes it forget; nobody is stopped here any more.
    window.addEventListener('pagehide', () => { debugger; }, true);
    exchange('start');
  };

  // ---- Start ----------------------------------------------------------------------------------------------------------

  const binding = window[bindingName];
  delete window[bindingName];
  let core;
  try {
    core = window.top[coreName];
  } catch {
    // A frame from somewhere else gets nothing.
  }
  if (window !== window.top) core?.adopt(window);
  else if (!core && binding) makeCore(binding);
})
