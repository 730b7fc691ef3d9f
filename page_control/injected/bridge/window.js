// The members of a page's windows, its frames' included, that the host implements. `adopt` installs them in one window.
const makeAdopt = (post, external, exchange, { encodeText, encode }, intrinsics) => {
  const { apply, define, Event, URL, setTimeout: later, address, baseAddress, composedPath, toLowerCase,
    addEventListener, dispatchEvent, stopImmediately } = intrinsics;

  const textOf = (value) => value === undefined ? '' : '' + value;

  const resolve = (given, view) => address(new URL(textOf(given) || 'about:blank', baseAddress(view.document)));

  const hasFrame = (view, name) => {
    try {
      if (view.name === name) return true;
    } catch {
      // The name of a cross-origin frame cannot be read.
    }
    for (let i = 0; i < view.length; ++i) if (hasFrame(view[i], name)) return true;
    return false;
  };

  const isOfPage = (view, target) => {
    const keyword = toLowerCase(target);
    return keyword === '_self' || keyword === '_top' || keyword === '_parent' || (target && hasFrame(view.top, target));
  };

  // Frames of the page keep the engine's own open(); the host decides about every other target.
  const makeOpen = (engineOpen, view) => function open(given, name) {
    if (isOfPage(view, textOf(name))) return apply(engineOpen, view, [given, name]);
    exchange('open', encodeText(resolve(given, view)));
    return null;
  };

  // The host's dialogs leave the page callable while they are open; the engine's own would block it.
  const openDialog = (type) => (message, proposal) =>
    exchange('dialog', type + ',' + encodeText(textOf(message)) + ',' + encodeText(textOf(proposal)));

  // Fires an event of printing in a window and its frames.
  const announce = (view, type) => {
    try {
      dispatchEvent(view, new Event(type));
      for (let i = 0; i < view.length; ++i) announce(view[i], type);
    } catch {
      // Cross-origin frames have no access.
    }
  };

  // The engine fires these while the page waits in print(), when a listener cannot wait for native objects.
  const onEnginePrints = (event) => {
    if (event.isTrusted) stopImmediately(event);
  };

  // print() of every frame prints the whole page. As in a browser, it waits for the user, but not if the page is being
  // loaded, which is printed when it is complete.
  let printing = false;
  let printsLater = false;
  const printPage = () => {
    if (printing) return;
    if (top.document.readyState !== 'complete') {
      if (!printsLater) addEventListener(top, 'load', () => later(printPage), { __proto__: null, once: true });
      printsLater = true;
      return;
    }
    printsLater = false;
    printing = true;
    try {
      announce(top, 'beforeprint');
      exchange('dialog', '"print",' + encodeText(textOf(top.document.title)) + ',""');
    } finally {
      printing = false;
      announce(top, 'afterprint');
    }
  };

  // The engine's own command would print nothing, and make it refuse to print from then on.
  const makeCommand = (engineCommand) => function execCommand(name) {
    if (toLowerCase('' + name) !== 'print') return apply(engineCommand, this, arguments);
    printPage();
    return true;
  };

  const onContextMenu = (event) => {
    // After the page's own listeners, which may show their own menu.
    const element = composedPath(event)[0];
    later(() => {
      if (event.defaultPrevented) return;
      post('["menu",' + (event.screenX | 0) + ',' + (event.screenY | 0) + ',' + encode(element) + ']');
    });
  };

  const onMouseDown = () => post('["mousedown"]');

  // Native sinks receive the presses that bubble to the body, as on the system's control: a page can stop an event on its
  // way, and a press in a frame stays in its document. Adding the listener again has no effect.
  const listen = () => {
    const body = intrinsics.body(document);
    if (body) addEventListener(body, 'mousedown', onMouseDown);
  };

  const adopt = (view) => {
    define(view, 'external', external);
    define(view, 'open', makeOpen(view.open, view));
    if (view === window) define(view, 'close', () => post('["close"]'));
    define(view, 'alert', openDialog('"alert"'));
    define(view, 'confirm', openDialog('"confirm"'));
    define(view, 'prompt', openDialog('"prompt"'));
    define(view, 'print', function print() { printPage(); });
    define(view.Document.prototype, 'execCommand', makeCommand(view.Document.prototype.execCommand));
    view.addEventListener('beforeprint', onEnginePrints, true);
    view.addEventListener('afterprint', onEnginePrints, true);
    view.addEventListener('contextmenu', onContextMenu, true);
  };

  return { adopt, listen };
};
