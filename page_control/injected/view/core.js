// The injected script of the view. It runs in every frame of a page before the page's own scripts. The core lives in the
// top document, where the host calls its functions; frames that may access it record in it what they receive.
//
// Pages may replace the language's built-ins, so those that are needed later are captured at the start.
const post = window[bindingName];  // takes "name:field"; protocol.h lists the names
delete window[bindingName];
applyStyles(options.textIsSelectable);
removeAbsent();

const isTop = window === top;
let core = isTop ? { __proto__: null } : undefined;
try {
  core ??= top[coreName];
} catch {
  // A cross-origin frame has no access.
}
if (!core) return;

const { addEventListener } = EventTarget.prototype;
const { apply } = Reflect;
const receipts = makeReceipts(core);
const caret = makeCaret(post);
const clipboard = makeClipboard(core, post);
const drag = makeDrag(core);
const pickers = makePickers(core, post);
const lock = makeLock(core, post);

// Adding a listener again has no effect, unless document.open() has removed them all.
const listeners = [
  ...receipts.listeners, ...caret.listeners, ...clipboard.listeners, ...drag.listeners, ...makeLinks(post).listeners,
  ...pickers.listeners, ...lock.listeners,
];
const pageWindow = isTop ? makeWindow(post) : null;
const state = isTop ? makeState(core) : null;
if (isTop) listeners.push(...pageWindow.listeners, ...state.listeners);
const listen = () => {
  for (let i = 0; i < listeners.length; ++i) {
    const types = listeners[i][0];
    for (let j = 0; j < types.length; ++j) apply(addEventListener, window, [types[j], listeners[i][1], true]);
  }
};
listen();
if (!isTop) return;

const { cursorAt, titleAt } = makePointer();
Object.assign(core, {
  // Grows with each button or key that the page receives; no two documents start with the same number.
  received: Math.random(),
  lastKey: null,
  requests: 0,
  copies: { __proto__: null },
  settlers: { __proto__: null },
  fields: { __proto__: null },
  choice: null,
  listed: null,
  inDialog: null,
  unlock: null,
  setTimer: setTimeout.bind(window),

  receipt: (isText) => {
    listen();
    return receipts.receipt(isText);
  },
  handlesTouch: receipts.handlesTouch,
  caret: caret.place,
  hasSelection: clipboard.hasSelection,
  copy: clipboard.copy,
  settle: clipboard.settle,
  pick: pickers.pick,
  watchList: pickers.watchList,
  cursorAt,
  titleAt,
  dragImage: drag.image,
  dropEffect: drag.effect,
  endDrag: drag.end,
  unlockPointer: lock.unlock,
  watchState: state.watch,
  watchSize: () => {
    listen();
    pageWindow.watchSize();
  },
});
Object.defineProperty(window, coreName, { value: core });
