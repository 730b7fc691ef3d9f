// Reports to the host what the page copies and reads by the engine's clipboard, so that it can be kept the same as the
// system's. Each report has an id, with which the host queries whether a copy is over, and settles the request.
const makeClipboard = (core, post) => {
  const { addEventListener, removeEventListener } = EventTarget.prototype;
  const { apply } = Reflect;
  const text = String;
  const Later = Promise;
  const Failure = DOMException;

  const selectedText = () => {
    let field = document.activeElement;
    while (field?.shadowRoot?.activeElement) field = field.shadowRoot.activeElement;
    if (field?.type === 'password') return '';
    if (typeof field?.selectionStart === 'number') return field.value.substring(field.selectionStart, field.selectionEnd);
    return text(getSelection());
  };

  // The page's own listeners may set data.
  let hasData = false;
  const afterCopy = (event) => {
    hasData = event.clipboardData.types.length > 0;
  };

  // The engine copies when the listeners have returned. The timer is the top document's, because a frame may be removed.
  const onCopy = (event) => {
    if (!event.isTrusted) return;
    apply(removeEventListener, window, [event.type, afterCopy]);
    apply(addEventListener, window, [event.type, afterCopy]);  // after all others
    const hadSelection = selectedText() !== '' || !getSelection().isCollapsed;
    hasData = false;
    const id = ++core.requests;
    core.copies[id] = new Later((resolve) => {
      core.setTimer(() => resolve(event.defaultPrevented ? hasData : hadSelection), 0);
    });
    post('copied:' + id);
  };

  // Waits until the host has settled the request.
  const requireSuccess = async () => {
    const succeeded = await new Later((resolve) => core.settlers[core.requests] = resolve);
    if (!succeeded) throw new Failure('The clipboard is in use by another program.', 'NotAllowedError');
  };

  const methods = {
    write: async (call) => {
      await call();
      core.copies[++core.requests] = true;
      post('copied:' + core.requests);
      await requireSuccess();
    },
    read: async (call) => {
      post('reading:' + ++core.requests);
      await requireSuccess();
      return call();
    },
  };
  const replace = (name, method) => {
    const { prototype } = window.Clipboard;
    const call = (original, self, values) => method(() => apply(original, self, values));
    if (prototype[name]) prototype[name] = new Proxy(prototype[name], { apply: call });
  };
  if (window.Clipboard) {
    for (const name of ['write', 'writeText']) replace(name, methods.write);
    for (const name of ['read', 'readText']) replace(name, methods.read);
  }

  return {
    listeners: [[['copy', 'cut'], onCopy]],
    hasSelection: () => selectedText() !== '',
    // Whether the page has certainly copied, or a promise of that.
    copy: (id) => core.copies[id],
    settle: (id, succeeded) => {
      core.settlers[id]?.(succeeded);
      delete core.settlers[id];
      delete core.copies[id];
    },
  };
};
