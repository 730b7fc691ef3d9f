'use strict';
// Random values of every type, from a seed.
//
// Members delete, move and replace files by name, so no text may lead out of the test's folder: paths are relative,
// without "..", or below that folder; registry paths are below one key; the server is on this machine.

const seeded = (state) => (below) => {
  state = (state + 0x6D2B79F5) | 0;
  let bits = Math.imul(state ^ (state >>> 15), state | 1);
  bits ^= bits + Math.imul(bits ^ (bits >>> 7), bits | 61);
  return ((bits ^ (bits >>> 14)) >>> 0) % below;
};
const random = seeded(external.members.seed());
const pick = (list) => list[random(list.length)];
const chance = (among) => random(among) === 0;

const folder = external.members.folder();
const server = external.members.server();
const address = 'file:///' + folder.replaceAll('\\', '/') + '/';

const files = [
  'notes.txt', 'garden.zip', 'leaf.ico', 'badge.bmp', 'second.html', 'tree', 'tree\\a.txt', 'tree/inner/b.txt',
  'tree\\inner', 'tree\\', 'none', 'none\\deeper\\c', 'new1', 'new2', 'new.txt', 'new.zip', 'new.lnk', 'new\\inner',
  'settings.ini', folder + '\\tree', folder + '\\notes.txt', folder + '\\new3', folder + '\\new1\\new2',
  address + 'notes.txt', address + 'tree/inner', address + 'new4',
];
const addresses = [server + 'whole', server + 'part', server + 'none', server + 'late', 'second.html'];
const key = 'HKEY_CURRENT_USER\\Software\\Tarvik soak members';
const words = [
  key, key + '\\a', key + '\\a\\b', key + '\\', 'HKEY_NOBODY\\a', 'a', 'a\\b', 'width', 'beds', 'target', 'step', 'walk', '&a\tCtrl+A',
  'ctrl+alt+f5', 'ctrl+shift+f6', 'f7', 'ctrl+', 'r', 'w', 'rw', 'rwc', 'rwo', 'wn', 'utf8', 'Unicode', 'ansi', 'none', 'cycle', 'normal',
  'PATH', 'TARVIK SOAK', 'null', 'true', '12', '-1', '1e400', 'A\u0301', 'K\u00e4se', '\u5976\u916a', '\u{1f33b}', '\ud800', 'lone \udc00 behind', 'zero\0behind',
  'a\0', ' ', 'line\r\nline', '(', '[a-', '^!(', 'a|txt$', 'x'.repeat(259), 'x'.repeat(260), 'x'.repeat(40000), 'long'.repeat(25000),
];
const leadsOut = (text) => /^[\\/.]|\.\.|[*?:]|^\0|^$/.test(
  [folder, address, server].reduce((rest, begin) => rest.startsWith(begin) ? 'a' + rest.slice(begin.length) : rest, text));
if ([...files, ...addresses, ...words].some(leadsOut)) throw new Error('A text leads out of the folder of the test.');
const anyText = () => pick(pick([files, addresses, words, words]));

const numbers = [
  0, -0, 1, 1, 2, 2, 3, 4, -1, 7, 10, 12, 0.5, -1.5, 100, 255, 256, 640, 65535, 65536, 1e6, 2 ** 31 - 1, 2 ** 31, -(2 ** 31),
  -(2 ** 31) - 1, 2 ** 32 - 1, 2 ** 32, 2 ** 53, -(2 ** 53), 2 ** 63, 1e308, 5e-324, NaN, Infinity, -Infinity,
];
const bigints = [0n, 1n, -1n, 12n, 300n, 2n ** 31n, 2n ** 32n - 1n, 2n ** 32n, 2n ** 53n, 2n ** 63n - 1n, 2n ** 64n, -(2n ** 63n)];

// Labels for the log of calls: printing an object would run its getters and traps.
const labels = new WeakMap();
const labelled = (label, object) => {
  labels.set(object, label);
  return object;
};
const describe = (value) => {
  if (typeof value === 'string')
    return JSON.stringify(value.length > 60 ? value.slice(0, 20) : value) + (value.length > 60 ? '... ' + value.length : '');
  if (typeof value === 'bigint') return value + 'n';
  if (Object.is(value, -0)) return '-0';
  if (typeof value === 'function' || (typeof value === 'object' && value)) return labels.get(value) ?? 'object';
  return String(value);
};

// Native objects that members returned, by type; new ones replace old ones.
const natives = new Map();
const keepNative = (type, object) => {
  if (!object || (typeof object !== 'object' && typeof object !== 'function')) return;
  if (!natives.has(type)) natives.set(type, []);
  const kept = natives.get(type);
  kept[kept.length < 6 ? kept.length : random(6)] = labelled(type, object);
};
const allNatives = () => [external, ...[...natives.values()].flat()];
// Cycles of references between native objects leak, as always in COM. If the end of a window does not break such a cycle,
// members get no native objects.
let sparesNatives = false;
const anyNative = () => pick(allNatives());

// What a callback does. `callAgain`, from calls.js, makes a further call.
let callAgain = () => {};
const run = () => {
  if (chance(6)) throw labelled('error', new Error('thrown on purpose'));
  if (chance(3)) callAgain();
  return chance(3) ? any() : pick([undefined, true, true, false, 0]);
};
const functions = [
  () => labelled('function', function () { return run(); }),
  () => labelled('function', function (...given) { given.forEach((one) => keepNative('Unknown', one)); return run(); }),
  () => labelled('async function', async () => run()),
  () => labelled('class', class {}),
  () => labelled('bound function', run.bind(null)),
];

const thrower = () => { throw labelled('error', new Error('thrown on purpose')); };
const revoked = () => {
  const { proxy, revoke } = Proxy.revocable({}, {});
  labelled('revoked Proxy', proxy);
  revoke();
  return proxy;
};
// Has every property.
const generous = () => labelled('generous Proxy', new Proxy({}, {
  has: () => true,
  get: (target, name) => (typeof name === 'symbol' || isAvoided(name) ? undefined : any()),
}));
const cyclic = () => {
  const object = { name: 'cyclic', list: [] };
  object.self = object;
  object.list.push(object.list, object);
  return labelled('cyclic object', object);
};
const objects = [
  () => labelled('{}', {}),
  () => labelled('object without prototype', Object.create(null)),
  () => labelled('frozen object', Object.freeze({ name: anyText(), src: anyText(), path: anyText() })),
  () => labelled('object that throws', { get name() { return thrower(); }, get path() { return thrower(); }, toString: thrower }),
  () => labelled('object as text', { toString: anyText, valueOf: () => pick(numbers) }),
  () => labelled('throwing Proxy', new Proxy({}, { has: thrower, get: thrower, ownKeys: thrower })),
  () => labelled('[]', [anyText()]),
  () => labelled('array', Array.from({ length: random(5) + 1 }, () => any())),
  () => labelled('array of 100000', new Array(1e5).fill(pick(numbers))),
  () => labelled('sparse array of 100000', new Array(1e5)),
  () => labelled('bytes', new Uint8Array(1e5)),
  () => labelled('date', new Date(pick(numbers))),
  () => labelled('expression', /a(b)?/g),
  () => labelled('promise', Promise.resolve(1)),
  () => labelled('map', new Map([[1, any()]])),
  () => labelled('element', document.body),
  () => labelled('boxed', Object(pick([true, 5, 'a', 5n]))),
  cyclic, revoked, generous,
];

let depth = 0;
const any = () => {
  if (depth > 3) return pick(numbers);
  ++depth;
  try {
    switch (random(12)) {
      case 0: return undefined;
      case 1: return null;
      case 2: return chance(2);
      case 3: case 4: return pick(numbers);
      case 5: return pick(bigints);
      case 6: case 7: return anyText();
      case 8: return sparesNatives ? null : anyNative();
      case 9: return pick(functions)();
      case 10: return pick(objects)();
      default: return chance(20) ? Symbol('thrown on purpose') : pick(objects)();
    }
  } finally {
    --depth;
  }
};

// ---- Values of a declared type ----------------------------------------------------------------------------------

const optionsOf = (type) => {
  const { bases, members } = declared.interfaces[type];
  return [...bases.flatMap(optionsOf), ...members];
};

const makeOptions = (type) => {
  const options = {};
  for (const { name, type: valueType, uses } of optionsOf(type)) {
    if (isAvoided(name) || chance(6)) continue;
    const value = chance(5) ? any() : uses.includes('call') ? pick(functions)() : fitting(valueType, name);
    if (chance(20)) Object.defineProperty(options, name, { get: thrower });
    else options[name] = value;
  }
  labelled(type, options);
  if (chance(8)) return Object.freeze(options);
  return chance(8) ? labelled('Proxy of ' + type, new Proxy(options, {})) : options;
};

const fittingText = (name) => {
  if (/url/i.test(name)) return pick(addresses);
  return /path|src|dest|icon|dir|image|store/i.test(name) && !chance(4) ? pick(files) : anyText();
};

const fittingOne = (type, name) => {
  if (type.includes('=>')) return pick(functions)();
  if (/^'.*'$/.test(type)) return type.slice(1, -1);
  if (/^-?\d+$/.test(type)) return Number(type);
  if (type.endsWith('[]')) return labelled(type, Array.from({ length: random(4) }, () => fitting(type.slice(0, -2), name)));
  if (type in declared.aliases) return fitting(declared.aliases[type], name);
  if (natives.has(type) && (!sparesNatives || name === 'subMenu')) return pick(natives.get(type));
  if (type in declared.interfaces && type.endsWith('Options')) return makeOptions(type);
  switch (type) {
    case 'string': return fittingText(name);
    case 'number': return chance(3) ? pick(numbers) : random(300);
    case 'boolean': return chance(2);
    case 'undefined': case 'void': return undefined;
    case 'null': return null;
    default: return any();
  }
};

const fitting = (type, name) => {
  if (type.includes('=>')) return fittingOne(type, name);
  return fittingOne(pick(type.replace(/ & \{.*?\}/, '').split(' | ')), name);
};
