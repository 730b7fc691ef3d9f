// Links that leave the page. For the middle button and modifier keys the engine would open a new window without an event; for
// an address of another program, such as mailto:, it would ask in a window that nobody sees and that takes all input.
const makeLinks = (post) => {
  const { addEventListener, removeEventListener } = EventTarget.prototype;
  const { apply } = Reflect;
  const { composedPath } = Event.prototype;
  const setTimer = setTimeout;
  const Address = URL;

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
        return '';  // no valid address
      }
    }
    return '';
  };

  // The page's own listeners run first. If one of them stops the event, only the timer is left.
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

  const kSchemes = { __proto__: null };  // those of pages and scripts
  for (const scheme of ['about', 'blob', 'chrome', 'data', 'edge', 'file', 'filesystem', 'http', 'https', 'javascript'])
    kSchemes[scheme] = true;

  const onNavigate = (event) => {
    if (!event.isTrusted || !event.cancelable) return;
    const { url } = event.destination;
    if (kSchemes[url.slice(0, url.indexOf(':'))]) return;
    event.preventDefault();
    post('window:' + url);
  };
  apply(addEventListener, navigation, ['navigate', onNavigate]);

  return { listeners: [[['click', 'auxclick'], onClick]] };
};
