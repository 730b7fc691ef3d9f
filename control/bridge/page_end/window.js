// What the page's windows, its frames' included, have of the host: adopts each in turn.
const makeAdopt = (binding, external, exchange, { encodeText, encode }, own) => {
  const { apply, define, URL, setTimeout: later, address, baseAddress, composedPath, toLowerCase } = own;

  const textOf = (value) => value === undefined ? '' : '' + value;

  const resolve = (given, view) => address(new URL(textOf(given) || 'about:blank', baseAddress(view.document)));

  const hasFrame = (view, name) => {
    try {
      if (view.name === name) return true;
    } catch {
      // One from somewhere else has no name for us.
    }
    for (let i = 0; i < view.length; ++i) if (hasFrame(view[i], name)) return true;
    return false;
  };

  const isOfPage = (view, target) => {
    const keyword = toLowerCase(target);
    return keyword === '_self' || keyword === '_top' || keyword === '_parent' || (target && hasFrame(view.top, target));
  };

  // Frames of a page keep the engine's own open(); everything else is for the host to decide.
  const makeOpen = (engineOpen, view) => function open(given, name) {
    if (isOfPage(view, textOf(name))) return apply(engineOpen, view, [given, name]);
    exchange('open', encodeText(resolve(given, view)));
    return null;
  };

  // While one of the host's dialogs is open the page can be called; while one of the engine's is, it could not.
  const ask = (type) => (message, proposal) =>
    exchange('dialog', type + ',' + encodeText(textOf(message)) + ',' + encodeText(textOf(proposal)));

  const onContextMenu = (event) => {
    // After the page's own listeners, which may have a menu of their own.
    const element = composedPath(event)[0];
    later(() => {
      if (event.defaultPrevented) return;
      binding('["menu",' + event.screenX + ',' + event.screenY + ',' + encode(element) + ']');
    });
  };

  const onMouseDown = () => binding('["mousedown"]');

  // Native sinks receive the presses that bubble to the body, as on the system's control: a page can stop a press on its
  // way, and a press in a frame stays in its document. Adding the listener again has no effect.
  const listen = () => {
    const body = own.body(document);
    if (body) own.addEventListener(body, 'mousedown', onMouseDown);
  };

  const adopt = (view) => {
    define(view, 'external', external);
    define(view, 'open', makeOpen(view.open, view));
    if (view === window) define(view, 'close', () => binding('["close"]'));
    define(view, 'alert', ask('"alert"'));
    define(view, 'confirm', ask('"confirm"'));
    define(view, 'prompt', ask('"prompt"'));
    view.addEventListener('contextmenu', onContextMenu, true);
  };

  return { adopt, listen };
};
