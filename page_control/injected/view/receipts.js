// Which input the page has received.
const makeReceipts = (core) => {
  const onInput = (event) => {
    if (!event.isTrusted) return;
    ++core.received;
    if (event.type === 'keydown') core.lastKey = event;
  };
  const onTouch = (event) => {
    if (event.isTrusted) core.lastTouch = event;
  };

  return {
    listeners: [
      [['pointerdown', 'mousedown', 'pointerup', 'mouseup', 'keydown', 'keyup', 'keypress'], onInput],
      [['touchend', 'touchcancel'], onInput],
      [['touchstart'], onTouch],
    ],
    // The count, or null where it proves nothing: a key whose default the page has prevented makes no text.
    receipt: (isText) => isText && core.lastKey?.defaultPrevented ? null : core.received,
    // Whether the page has prevented what the engine makes of a contact.
    handlesTouch: () => core.lastTouch?.defaultPrevented ?? false,
  };
};
