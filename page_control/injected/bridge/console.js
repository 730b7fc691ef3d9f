// The `console` of a page. The host's prologue assigns the plug-in, which has few of the members that libraries call. What
// the page then reads has the engine's methods, too. The plug-in's members win, and those that the page defines win over
// both.
const makeConsole = (records, { encodeText }, intrinsics) => {
  const { apply, newMap, defineAccessor, getOwnPropertyDescriptor, getPrototypeOf, Proxy } = intrinsics;
  const { get, set, has, defineProperty, deleteProperty } = Reflect;
  const { create, getOwnPropertyDescriptors } = Object;
  const ownName = encodeText('console');

  const isPlugin = (value) => {
    const record = records.get(value);
    return !!record && record.owner?.id === kExternal && record.name === ownName;
  };

  const merge = (plugin, engineConsole) => {
    const ofPlugin = newMap();  // by name: the plug-in has this member, which the page has not replaced
    const isOfPlugin = (name) => {
      if (typeof name !== 'string') return false;
      if (!ofPlugin.has(name)) ofPlugin.set(name, has(plugin, name));
      return ofPlugin.get(name);
    };
    // A property of the plug-in reads as a method while it is empty. So the new value decides: a function replaces a
    // method, any other value is written to a property.
    const belongsToPlugin = (name, value) => isOfPlugin(name) && typeof value !== 'function';
    // Libraries print blank lines without a text, which the plug-in does not accept.
    function log() {
      return apply(plugin.log, plugin, arguments.length ? arguments : ['']);
    }
    const ofPluginOrLog = (name) => name === 'log' ? log : plugin[name];
    const replace = (name) => typeof name === 'string' && ofPlugin.set(name, false);

    const own = create(getPrototypeOf(engineConsole), getOwnPropertyDescriptors(engineConsole));
    return new Proxy(own, {
      __proto__: null,
      get: (target, name) => isOfPlugin(name) ? ofPluginOrLog(name) : get(target, name),
      set: (target, name, value) => {
        if (belongsToPlugin(name, value)) return set(plugin, name, value);
        replace(name);
        return set(target, name, value);
      },
      has: (target, name) => isOfPlugin(name) || has(target, name),
      defineProperty: (target, name, description) => {
        if ('value' in description && belongsToPlugin(name, description.value)) return set(plugin, name, description.value);
        replace(name);
        return defineProperty(target, name, description);
      },
      deleteProperty: (target, name) => {
        replace(name);
        return deleteProperty(target, name);
      },
      getOwnPropertyDescriptor: (target, name) => isOfPlugin(name)
        ? { __proto__: null, value: ofPluginOrLog(name), writable: true, enumerable: true, configurable: true }
        : getOwnPropertyDescriptor(target, name),
    });
  };

  return (view) => {
    const engineConsole = view.console;
    let current = engineConsole;
    defineAccessor(view, 'console', () => current, (value) => {
      current = isPlugin(value) ? merge(value, engineConsole) : value;
    });
  };
};
