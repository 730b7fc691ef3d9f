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

const kMethod = {};         // the answer to a read of what must be called
const kPerhapsMethod = {};  // the same, but for once: what could not be read may be there another time
const kWindow = 0;          // the number of the page's global object
const kExternal = 0;        // the id of `external`

const makeCore = (binding) => {
  const own = takeAside();
  const { isInteger, reportError: report, deref, Proxy, WeakRef, newMap, newWeakMap } = own;

  // Native objects that script holds: a proxy each, with the count of references that came. And the record of each proxy.
  const natives = newMap();
  const records = newWeakMap();

  // Script objects that native code holds: a number each, with the count of references it was given.
  const held = newMap();
  const numberOf = newWeakMap();

  const encoders = makeEncoders(records, numberOf, held, own);
  const { encodeText } = encoders;
  const tasks = makeTasks(encoders, own);

  // Anything can be thrown, also what cannot be looked at.
  const failure = (error) => {
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
      if (task.failed) throw task.failed;
      return tasks[task.name](task.object, task.member, task.values);
    } catch (error) {
      if (!task.quiet) report(error);
      return failure(error);
    }
  };

  const { exchange, deliver } = makeCalls(binding, run, own);
  const handlersFor = makeHandlers(exchange, records, encoders, own);

  const onGone = own.finalization((id) => {
    const entry = natives.get(id);
    if (!entry || deref(entry.proxy)) return;
    natives.remove(id);
    binding('["release",' + id + ',' + entry.count + ']');
  });

  const nativeObject = (id, callable) => {
    const entry = natives.get(id);
    const there = entry && deref(entry.proxy);
    if (entry) ++entry.count;
    if (there) return there;
    const record = {
      __proto__: null, id, methods: newMap(), owner: null, name: '', shape: null, proxy: null, listed: null,
    };
    const proxy = new Proxy(callable ? () => {} : {}, handlersFor(record));
    record.proxy = proxy;  // a method that was taken from it keeps it
    records.set(proxy, record);
    natives.set(id, { proxy: new WeakRef(proxy), count: entry ? entry.count : 1 });
    onGone(proxy, id);
    return proxy;
  };

  const { decode, decodeAll } = makeDecoders(nativeObject, held, own);
  const external = nativeObject(kExternal, true);
  const { adopt, listen } = makeAdopt(binding, external, exchange, encoders, own);

  // Items, made of put()'s arguments. Values are decoded on arrival: with the same message native code may drop what
  // they name.
  const items = {
    __proto__: null,
    value: (id, value) => ({ __proto__: null, kind: 'value', id, value: decode(value) }),
    method: (id, surely) => ({ __proto__: null, kind: 'method', id, surely }),
    error: (id, number, message) => ({ __proto__: null, kind: 'error', id, number, message }),
    run: (id, name, object, member, values, quiet) => ({
      __proto__: null, kind: 'run', id, name, object: decode(object), member: decode(member),
      values: decodeAll(values), quiet,
    }),
    listen,
    nothing: () => undefined,
  };

  // What could not be taken in, for want of stack as a rule: whoever waits for it must hear.
  const unreadable = (kind, id, failed) => kind === 'run'
    ? { __proto__: null, kind, id, failed, quiet: true }
    : { __proto__: null, kind: 'error', id, number: 0, message: 'The answer could not be read.' };

  const take = (kind, parts) => {
    try {
      return own.apply(items[kind], null, parts);
    } catch (error) {
      return unreadable(kind, parts[0], error);
    }
  };

  // drops: numbers of script objects and how many of their references are no longer needed, one after the other.
  const put = (drops, kind, ...parts) => {
    const item = take(kind, parts);
    for (let i = 0; i < drops.length; i += 2) {
      const entry = held.get(drops[i]);
      if (entry && (entry.count -= drops[i + 1]) <= 0) held.remove(drops[i]);
    }
    if (!item) return '';
    if (deliver(item)) return 'queued';
    return item.kind === 'run' ? run(item) : '';
  };

  Object.defineProperty(window, coreName, { value: { __proto__: null, adopt, put } });
  adopt(window);
  // The engine remembers how the last parked call was told to go on, and with that in mind stops nowhere in the next
  // document of its process. This makes it forget; nobody is stopped here any more.
  window.addEventListener('pagehide', () => { debugger; }, true);
  exchange('start', encoders.encodeAll(own.commonNames));
};

// ---- Start ------------------------------------------------------------------------------------------------------------

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
