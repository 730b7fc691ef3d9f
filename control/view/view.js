// The view's end in each document of a page, before its own script: the look of what the engine would draw outside of the
// page, and what the host asks about. The top document's functions answer; frames that it may touch tell it what they see.
//
// Pages may replace what they like of the language's own objects, so what is needed later is taken aside first.
((bindingName, coreName, textIsSelectable) => {
  'use strict';
  const post = window[bindingName];  // takes "copied:TEXT" and "window:ADDRESS"
  delete window[bindingName];

  // Drop-down lists of the platform's kind are missing from the picture. The layer lets pages keep their own looks,
  // but not turn to such a list: what is important in a layer wins.
  const sheet = new CSSStyleSheet();
  sheet.replaceSync(`@layer {
    select:not([multiple]):is(:not([size]), [size="0"], [size="1"]) {
      &, &::picker(select) { appearance: base-select !important; border: 1px solid #767676; }
      & { border-radius: 2px; min-block-size: 0; padding: 1px 4px; }
      &::picker-icon { font-size: 0.6em; align-self: center; }
      option { min-block-size: 0; padding: 1px 6px; }
      option::checkmark { display: none; }
      option:checked { background: #cce4f7; }
    }
  }`);
  document.adoptedStyleSheets.push(sheet);
  if (!textIsSelectable) {
    const fixed = new CSSStyleSheet();
    fixed.replaceSync('@layer { :root { user-select: none; } input, textarea { user-select: text; } }');
    document.adoptedStyleSheets.push(fixed);
  }

  const isTop = window === top;
  let core = isTop ? { __proto__: null } : undefined;
  try {
    core ??= top[coreName];
  } catch {
    // A frame from somewhere else.
  }
  if (!core) return;

  const { addEventListener, removeEventListener } = EventTarget.prototype;
  const { apply } = Reflect;
  const { random } = Math;
  const { composedPath } = Event.prototype;
  const setTimer = setTimeout;
  const Address = URL;
  const text = String;

  // ---- What the page has seen -------------------------------------------------------------------------------------

  const onInput = (event) => {
    if (!event.isTrusted) return;
    ++core.seen;
    if (event.type === 'keydown') core.lastKey = event;
  };

  // ---- Clipboard --------------------------------------------------------------------------------------------------

  const selectedText = () => {
    const field = document.activeElement;
    if (field?.type === 'password') return '';
    if (typeof field?.selectionStart === 'number') return field.value.substring(field.selectionStart, field.selectionEnd);
    return text(getSelection());
  };

  // The page's own listeners may have put something else there.
  const afterCopy = (event) => {
    const copied = event.defaultPrevented ? event.clipboardData.getData('text/plain') : selectedText();
    if (copied) post('copied:' + copied);
  };

  const onCopy = (event) => {
    if (core.brought === undefined) {
      apply(removeEventListener, window, [event.type, afterCopy]);
      apply(addEventListener, window, [event.type, afterCopy]);  // behind all others
      return;
    }
    // The host fills the engine's clipboard by a copy that is not the page's.
    event.clipboardData.setData('text/plain', core.brought);
    event.preventDefault();
    event.stopImmediatePropagation();
  };

  // ---- Links into a new window --------------------------------------------------------------------------------------

  // For the middle button and modifier keys the engine opens a window on its own, and tells nobody.
  const isForNewWindow = ({ isTrusted, button, ctrlKey, shiftKey }) =>
    isTrusted && (button === 1 || (button === 0 && (ctrlKey || shiftKey)));

  const addressOfLink = (event) => {
    const path = apply(composedPath, event, []);
    for (let i = 0; i < path.length; ++i) {
      const { localName, href, baseURI } = path[i];
      if ((localName !== 'a' && localName !== 'area') || !href) continue;
      try {
        return new Address(href.baseVal ?? href, baseURI).href;
      } catch {
        return '';  // it is none
      }
    }
    return '';
  };

  // The page's own listeners come first. Some of them keep the event to themselves: then only the time is left.
  const onClick = (event) => {
    const address = isForNewWindow(event) ? addressOfLink(event) : '';
    if (!address || address.startsWith('javascript:')) return;
    const finish = () => {
      if (event.defaultPrevented) return;
      event.preventDefault();
      post('window:' + address);
    };
    apply(addEventListener, window, [event.type, finish, { once: true }]);
    setTimer(() => {
      apply(removeEventListener, window, [event.type, finish]);
      finish();
    });
  };

  // Listeners that are there already stay single; document.open() drops them all.
  const listen = () => {
    for (const type of ['pointerdown', 'mousedown', 'pointerup', 'mouseup', 'keydown', 'keyup', 'keypress'])
      apply(addEventListener, window, [type, onInput, true]);
    for (const type of ['copy', 'cut']) apply(addEventListener, window, [type, onCopy, true]);
    for (const type of ['click', 'auxclick']) apply(addEventListener, window, [type, onClick, true]);
  };
  listen();
  if (!isTop) return;

  // ---- The pointer ------------------------------------------------------------------------------------------------

  // The innermost element, with the place in its own document.
  const elementAt = (x, y) => {
    let root = document;
    let found = null;
    for (;;) {
      const element = root.elementFromPoint(x, y);
      if (!element || element === found) break;
      found = element;
      if (element.contentDocument) {
        const { left, top: above } = element.getBoundingClientRect();
        x -= left + element.clientLeft;
        y -= above + element.clientTop;
        root = element.contentDocument;
      } else if (element.shadowRoot) {
        root = element.shadowRoot;
      } else {
        break;
      }
    }
    return { element: found, x, y };
  };

  const kTextFields = 'textarea, input:not([type=button], [type=submit], [type=reset], [type=checkbox], [type=radio], ' +
    '[type=range], [type=color], [type=file], [type=image])';

  const isOverText = (element, x, y) => {
    const view = element.ownerDocument;
    const caret = view.caretRangeFromPoint(x, y);
    const node = caret?.startContainer;
    if (node?.nodeType !== Node.TEXT_NODE || node.parentNode !== element) return false;
    const range = view.createRange();
    range.selectNodeContents(node);
    for (const { left, right, top: above, bottom } of range.getClientRects())
      if (x >= left && x <= right && y >= above && y <= bottom) return true;
    return false;
  };

  // ---- The host's way in ------------------------------------------------------------------------------------------

  Object.assign(core, {
    // Grows with each button or key that the page sees; no two documents count alike.
    seen: random(),
    lastKey: null,
    brought: undefined,

    // The count, or null where it says nothing: a key that the page has refused makes no text.
    look: (isText) => {
      listen();
      return isText && core.lastKey?.defaultPrevented ? null : core.seen;
    },

    hasSelection: () => selectedText() !== '',

    bring: (brought) => {
      core.brought = brought;
      try {
        document.execCommand('copy');
      } finally {
        core.brought = undefined;
      }
    },

    // The name of a cursor; `auto` is decided here.
    cursorAt: (left, above) => {
      const { element, x, y } = elementAt(left, above);
      if (!element) return 'default';
      const { cursor, userSelect } = element.ownerDocument.defaultView.getComputedStyle(element);
      // Pictures come with the name of what to take in their place.
      if (cursor !== 'auto') return cursor.split(',').pop().trim();
      if (element.isContentEditable || element.matches(kTextFields)) return 'text';
      return userSelect !== 'none' && isOverText(element, x, y) ? 'text' : 'default';
    },
  });
  Object.defineProperty(window, coreName, { value: core });
})
