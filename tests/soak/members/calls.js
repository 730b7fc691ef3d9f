'use strict';
// Calls the members of all plug-ins at random. They come from the declarations, so a new member is called as soon as it is
// declared: if that is dangerous, add it to `excluded`.

// ---- Exclusions -------------------------------------------------------------------------------------------------------

// "Type member", or "Type member use" for one of its uses.
const excluded = {
  'System reboot': 'restarts the machine',
  'System shutdown': 'switches it off',
  'System hiberhates': 'puts it to sleep',
  'System suspended': 'puts it to sleep',
  'System closeMonitor': 'switches the monitor off',
  'System lockWorkStation': 'locks the screen',
  'System administrator write': 'restarts the program elevated',
  'System shellExecute': 'starts programs',
  'Window quit': 'ends the program',
  'Window close': 'closes the calling page; closeSecond() closes another window',
  'Window selectFile': 'opens a modal dialog',
  'Window selectFolder': 'opens a modal dialog',
  'Window messageBox': 'opens a modal dialog',
  'Menu popup': 'waits until an item is chosen',
  'Console showJsError write': 'lets script errors open a modal dialog',
  'Mouse click': 'clicks whatever is under the pointer, also in other programs',
};
// Types of objects that the host does not implement.
const foreign = ['XmlHttp', 'Error', 'StatusError', 'List'];
// Options that are never used.
const avoided = { desktop: 'puts a file where the user works' };
const isAvoided = (name) => Object.hasOwn(avoided, name);
// Large numbers would fill the memory or the disk.
const sized = ['Stream seek', 'Stream setSize', 'FileIO seek', 'FileIO size'];
// Texts that could denote any file or key are passed only to members that use neither.
const bare = ['', '\0', '\\', '/', '.', '..', '*', '?', '%', '%%', '&', '+', '\t'];
const harmless = [
  'Digest addData', 'Window title', 'Messages registerMsg', 'Messages unregisterMsg', 'Messages sendMsg', 'Messages uniqueID',
  'Menu getSubMenu', 'Menu enable', 'Hotkey set', 'Hotkey clear', 'DragFile bind', 'DragFile get', 'Stream writeString',
  'Stream readString', 'CommandLine isSwitchExist', 'CommandLine getArgPair', 'Registry mode', 'Console log',
];

const kSize = 2 ** 18;
const asSize = (value) => {
  if (typeof value === 'number') return Number.isFinite(value) ? value % kSize : value;
  if (typeof value === 'bigint') return value % BigInt(kSize);
  return typeof value === 'object' || typeof value === 'function' ? null : value;
};

// These retain their arguments, even after the window has been destroyed.
const holders = ['Menu appendMenu', 'DropBinding callback', 'DropBinding context', 'ParsedShortcut path', 'ParsedShortcut args'];

// Arguments that are changed to make a call safe.
const guards = {
  // A delayed deletion happens at the next start of the system, to whatever has that path then.
  'File deleteFile': ([path, ...rest]) => [path, ...rest.map((value) => (value === true ? false : value))],
  // The name is that of a key beside the keys of other programs.
  'Config init': ([store, isPath, ...rest]) =>
    [isPath === true || typeof store !== 'string' ? store : 'Tarvik soak members\\' + store, isPath, ...rest],
};
const guarded = (key, values) => {
  if (sized.includes(key)) return values.map(asSize);
  return guards[key] ? guards[key](values) : values;
};

// ---- Members ----------------------------------------------------------------------------------------------------------

// The types of objects that members return, starting from `external`.
const reachable = new Set(['Host']);
for (const type of reachable)
  for (const { type: given } of declared.interfaces[type].members)
    for (const [name] of (given ?? '').matchAll(/\w+/g))
      if (name in declared.interfaces && !foreign.includes(name)) reachable.add(name);

const uses = [...reachable].flatMap((type) => declared.interfaces[type].members.flatMap((member) =>
  member.uses.filter((use) => !excluded[`${type} ${member.name}`] && !excluded[`${type} ${member.name} ${use}`])
    .map((use) => ({ type, member, use, key: `${type} ${member.name}` }))));
const isExcluded = (key) => Object.keys(excluded).some((one) => one === key || one.startsWith(key + ' '));

const plugins = new Map(declared.interfaces.Host.members.map(({ name, type }) => [type, name]));

const objectFor = (type) => {
  if (type === 'Host') return external;
  const kept = natives.get(type);
  if (plugins.has(type) && (!kept || chance(2))) return labelled(type, external[plugins.get(type)]);
  return kept && pick(kept);
};

const windows = [];
const note = (type, result) => {
  for (const [name] of (type ?? '').matchAll(/\w+/g)) {
    if (!reachable.has(name)) continue;
    keepNative(name, result);
    if (name === 'Window' && result) windows.push(result);
  }
};

const argument = (key, { type, name }) => {
  if (harmless.includes(key) && chance(10)) return pick(bare);
  return chance(3) ? any() : fitting(type, name);
};
const argumentsFor = (key, member, use) => {
  const values = pick(member.parameters).map((parameter) => argument(key, parameter));
  if (use === 'call') {
    if (chance(12)) values.pop();
    if (chance(20)) values.push(any());
  }
  return guarded(key, values);
};

// ---- Calls ------------------------------------------------------------------------------------------------------------

// Other operations on a member or its object.
const misuses = [
  (object, name) => { delete object[name]; },
  (object, name) => name in object,
  (object, name) => new object[name](),
  (object, name) => object[name],
  (object) => Object.keys(object).length,
  (object) => JSON.stringify(object),
  (object) => object + '',
  (object) => { for (const name in object) object.hasOwnProperty(name); },
  (object) => object(),
  (object) => object[Symbol.iterator],
];

const done = { call: (object, name, values) => object[name](...values), read: (object, name) => object[name] };
done.write = (object, name, [value]) => { object[name] = value; };

let performed = 0, failed = 0;
const perform = (text, action) => {
  external.members.note(text);
  ++performed;
  try {
    return action();
  } catch {
    ++failed;
  }
};

const callOne = () => {
  const { type, member, use, key } = pick(uses);
  if (key === 'Host createWindow' && windows.length >= 3) return;
  const object = objectFor(type);
  if (!object) return callOne();
  if (chance(25) && !isExcluded(key)) {
    const misuse = random(misuses.length);
    perform(`misuse ${misuse} of ${key}`, () => misuses[misuse](object, member.name));
    return;
  }
  const spared = sparesNatives;
  sparesNatives ||= holders.includes(key);
  const values = use === 'read' ? [] : argumentsFor(key, member, use);
  const text = `${key} ${use}(${values.map(describe).join(', ')})`;
  note(member.type, perform(text, () => done[use](object, member.name, values)));
  sparesNatives = spared;
};

let nested = 0;
callAgain = () => {
  if (nested > 1) return;
  ++nested;
  try {
    callOne();
  } finally {
    --nested;
  }
};

// Another window passes its plug-ins to this one and is closed.
let second;
const openSecond = () => {
  second = createWindow({
    url: 'second.html',
    callback: (theirs) => plugins.forEach((name, type) => keepNative(type, labelled(type + ' of another window', theirs[name]))),
  });
};
const closeSecond = () => { if (second) second.close(); };

const kCalls = external.members.calls();
const kSlice = 10;
let calls = 0;
const continueCalls = () => {
  if (calls === kSlice * 5) openSecond();
  if (calls === kSlice * 15) closeSecond();
  for (let i = 0; i < kSlice; ++i) callOne();
  calls += kSlice;
  if (calls < kCalls) setTimeout(continueCalls);
  else external.members.done(performed, failed);
};

console.showJsError = false;
external.window.show(true);
setTimeout(continueCalls);
