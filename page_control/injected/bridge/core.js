// The injected script of the bridge between page script and native objects. It runs in every frame of a page before the
// page's own scripts. The core lives in the top document; frames that may access it share it.
//
// To the host: the binding takes JSON arrays, [name, ...]. A call that needs a reply pauses the page on a `debugger`
// statement. To the page: the host evaluates receive(releases, name, ...). If the page is paused in a call, the message is
// queued for the innermost one: its reply, or a task to run meanwhile. If the page is idle, a task runs immediately and its
// outcome is the evaluation's result. protocol.h lists all names.
//
// The cost of a pause grows with the frames on the stack and the variables around each, all of which the engine lists: so
// functions that are on the stack during a pause have few variables around them, and bound functions have no frame.

const kMethod = {};          // the reply to a read: the member is a method
const kMethodThisTime = {};  // the same, for this read only: a member that could not be read may be readable later
const kWindow = 0;           // the number of the page's global object
const kExternal = 0;         // the id of `external`

const makeCore = (post) => {
  const intrinsics = captureIntrinsics();
  const { isInteger, reportError: report, deref, Proxy, WeakRef, newMap, newWeakMap } = intrinsics;

  // Native objects that script holds, by id: the proxy and the number of references received. And the record of each
  // proxy.
  const natives = newMap();
  const records = newWeakMap();

  // Script objects that native code holds, by number: the object and the number of references sent.
  const held = newMap();
  const numberOf = newWeakMap();

  const encoders = makeEncoders(records, numberOf, held, intrinsics);
  const { encodeText } = encoders;
  const tasks = makeTasks(encoders, intrinsics);

  // Anything can be thrown, even an object whose members cannot be read.
  const failure = (error) => {
    let number = 0;
    let message = 'Script error';
    try {
      const isObject = typeof error === 'object' && error !== null;
      if (isObject && isInteger(error.number)) number = error.number | 0;
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

  const { exchange, enqueue } = makeCalls(post, run, intrinsics);
  const handlersFor = makeHandlers(exchange, records, encoders, intrinsics);

  const onCollected = intrinsics.finalization((id) => {
    const entry = natives.get(id);
    if (!entry || deref(entry.proxy)) return;
    natives.remove(id);
    post('["release",' + id + ',' + entry.count + ']');
  });

  const nativeObject = (id, callable) => {
    const entry = natives.get(id);
    const existing = entry && deref(entry.proxy);
    if (entry) ++entry.count;
    if (existing) return existing;
    const record = {
      __proto__: null, id, methods: newMap(), owner: null, name: '', shape: null, proxy: null, listed: null,
    };
    const proxy = new Proxy(callable ? () => {} : {}, handlersFor(record));
    record.proxy = proxy;  // a method read from the proxy keeps it alive
    records.set(proxy, record);
    natives.set(id, { proxy: new WeakRef(proxy), count: entry ? entry.count : 1 });
    onCollected(proxy, id);
    return proxy;
  };

  const { decode, decodeAll } = makeDecoders(nativeObject, held, intrinsics);
  const external = nativeObject(kExternal, true);
  const { adopt, listen } = makeAdopt(post, external, exchange, encoders, intrinsics);
  const installConsole = makeConsole(records, encoders, intrinsics);

  // The host's messages by name. Values are decoded on arrival, because the same message may release what they refer to.
  const replies = {
    __proto__: null,
    value: (id, value) => ({ __proto__: null, kind: 'value', id, value: decode(value) }),
    method: (id, isPermanent) => ({ __proto__: null, kind: 'method', id, isPermanent }),
    error: (id, number, message) => ({ __proto__: null, kind: 'error', id, number, message }),
  };
  const commands = {
    __proto__: null,
    run: (id, name, object, member, values, quiet) => ({
      __proto__: null, kind: 'run', id, name, object: decode(object), member: decode(member),
      values: decodeAll(values), quiet,
    }),
    listen,
    release: () => undefined,
  };

  // A message that could not be decoded, usually for lack of stack, still needs an outcome: its sender waits.
  const unreadable = (kind, id, failed) => kind === 'run'
    ? { __proto__: null, kind, id, failed, quiet: true }
    : { __proto__: null, kind: 'error', id, number: 0, message: 'The reply could not be decoded.' };

  const read = (kind, parts) => {
    try {
      return intrinsics.apply(replies[kind] || commands[kind], null, parts);
    } catch (error) {
      return unreadable(kind, parts[0], error);
    }
  };

  // releases: numbers of script objects, each followed by how many of its references native code has released.
  const receive = (releases, kind, ...parts) => {
    const item = read(kind, parts);
    for (let i = 0; i < releases.length; i += 2) {
      const entry = held.get(releases[i]);
      if (entry && (entry.count -= releases[i + 1]) <= 0) held.remove(releases[i]);
    }
    if (!item) return '';
    if (enqueue(item)) return 'queued';
    return item.kind === 'run' ? run(item) : '';
  };

  Object.defineProperty(window, coreName, { value: { __proto__: null, adopt, receive } });
  adopt(window);
  installConsole(window);
  // The engine remembers how the last paused call was resumed, and would then pause nowhere in the next document of the
  // same process. This statement resets it; by now the engine pauses nowhere in this document.
  window.addEventListener('pagehide', () => { debugger; }, true);
  exchange('start', encoders.encodeAll(intrinsics.commonNames));
};

// ---- Start ------------------------------------------------------------------------------------------------------------

const post = window[bindingName];
delete window[bindingName];
let core;
try {
  core = window.top[coreName];
} catch {
  // Cross-origin frames get nothing.
}
if (window !== window.top) core?.adopt(window);
else if (!core && post) makeCore(post);
