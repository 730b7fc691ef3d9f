// The members of a page's windows, its frames' included, that the host implements. `adopt` installs them in one window.
const makeAdopt = (post, external, exchange, { encodeText, encode }, intrinsics) => {
  const { apply, define, URL, setTimeout: later, address, baseAddress, composedPath, toLowerCase } = intrinsics;

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
    if (body) intrinsics.addEventListener(body, 'mousedown', onMouseDown);
  };

  const adopt = (view) => {
    define(view, 'external', external);
    define(view, 'open', makeOpen(view.open, view));
    if (view === window) define(view, 'close', () => post('["close"]'));
    define(view, 'alert', openDialog('"alert"'));
    define(view, 'confirm', openDialog('"confirm"'));
    define(view, 'prompt', openDialog('"prompt"'));
    view.addEventListener('contextmenu', onContextMenu, true);
  };

  return { adopt, listen };
};
