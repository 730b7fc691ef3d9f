// The language's built-ins as they were before the page's own scripts ran. Pages may replace any of them and add members
// to Object.prototype. So every built-in that is needed later is captured here, objects that others read have no
// prototype, and nothing is spread, which would run the page's iterators.
const captureIntrinsics = () => {
  const { apply, construct, ownKeys } = Reflect;
  const { is, defineProperty, getOwnPropertyDescriptor, getPrototypeOf, hasOwn } = Object;
  const methodOf = (prototype, name) => {
    const method = prototype[name];
    return (object, ...values) => apply(method, object, values);
  };
  const getterOf = (prototype, name) => {
    const { get } = getOwnPropertyDescriptor(prototype, name);
    return (object) => apply(get, object, []);
  };
  const mapOf = (Base) => {
    const { get, set, has, delete: remove } = Base.prototype;
    return (map = new Base()) => ({
      get: (key) => apply(get, map, [key]),
      set: (key, value) => apply(set, map, [key, value]),
      has: (key) => apply(has, map, [key]),
      remove: (key) => apply(remove, map, [key]),
    });
  };
  const { register } = FinalizationRegistry.prototype;
  const { FinalizationRegistry: Registry } = window;
  return {
    __proto__: null,
    apply, construct, ownKeys, is, getOwnPropertyDescriptor, getPrototypeOf, hasOwn,
    Date, Error, Event, Proxy, RangeError, URL, WeakRef,
    eval, reportError, setTimeout,
    isInteger: Number.isInteger,
    stringify: JSON.stringify,
    toPrimitive: Symbol.toPrimitive,
    objectPrototype: Object.prototype,
    commonNames: ownKeys(Object.prototype),
    newMap: mapOf(Map),
    newWeakMap: mapOf(WeakMap),
    define: (object, name, value) =>
      defineProperty(object, name, { __proto__: null, value, writable: true, enumerable: true, configurable: true }),
    defineAccessor: (object, name, get, set) =>
      defineProperty(object, name, { __proto__: null, get, set, enumerable: false, configurable: true }),
    // Returns a function that registers an object with a key; `onCollected` receives the key of each collected object.
    finalization: (onCollected) => {
      const registry = new Registry(onCollected);
      return (object, key) => apply(register, registry, [object, key]);
    },
    isWellFormed: methodOf(String.prototype, 'isWellFormed'),
    toLowerCase: methodOf(String.prototype, 'toLowerCase'),
    charCodeAt: methodOf(String.prototype, 'charCodeAt'),
    bind: methodOf(Function.prototype, 'bind'),
    deref: methodOf(WeakRef.prototype, 'deref'),
    composedPath: methodOf(Event.prototype, 'composedPath'),
    stopImmediately: methodOf(Event.prototype, 'stopImmediatePropagation'),
    addEventListener: methodOf(EventTarget.prototype, 'addEventListener'),
    dispatchEvent: methodOf(EventTarget.prototype, 'dispatchEvent'),
    baseAddress: getterOf(Node.prototype, 'baseURI'),  // a form of that name would shadow the property
    body: getterOf(Document.prototype, 'body'),
    address: getterOf(URL.prototype, 'href'),
  };
};
