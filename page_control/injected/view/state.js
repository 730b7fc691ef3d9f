// What the page receives of its window's focus and visibility. While script is paused in a native call, the engine changes
// them, but loses their events. The page then gets others, which are not trusted.
const makeState = (core) => {
  const { apply } = Reflect;
  const { dispatchEvent } = EventTarget.prototype;
  const StateEvent = Event;
  const FocusChange = FocusEvent;
  const Frame = HTMLIFrameElement;
  const kTimeForEvents = 100;  // milliseconds

  const hasFocus = document.hasFocus.bind(document);
  // Focus in a frame is that of the frame's own window.
  const isFocused = () => hasFocus() && !(document.activeElement instanceof Frame);
  let seenFocus = isFocused();
  let seenVisibility = document.visibilityState;
  let watches = 0;

  const onFocus = ({ target, type }) => {
    if (target === window) seenFocus = type === 'focus';
  };
  const onVisibility = () => { seenVisibility = document.visibilityState; };

  const fire = (target, event) => apply(dispatchEvent, target, [event]);
  const repeatFocus = () => {
    const element = document.activeElement;
    const isElement = element && element !== document.body;
    const types = seenFocus ? ['blur', 'focusout'] : ['focus', 'focusin'];
    const fireWindow = () => fire(window, new FocusChange(types[0]));
    if (!seenFocus) fireWindow();
    if (isElement) fire(element, new FocusChange(types[0], { composed: true }));
    if (isElement) fire(element, new FocusChange(types[1], { bubbles: true, composed: true }));
    if (types[0] === 'blur') fireWindow();
  };

  const repeatMissed = () => {
    if (seenVisibility !== document.visibilityState) fire(document, new StateEvent('visibilitychange', { bubbles: true }));
    if (seenFocus !== isFocused()) repeatFocus();
  };

  return {
    listeners: [[['focus', 'blur'], onFocus], [['visibilitychange'], onVisibility]],
    // In a task of its own, because a handler of the page may call the host.
    watch: () => {
      const watch = ++watches;
      core.setTimer(() => { if (watch === watches) repeatMissed(); }, kTimeForEvents);
    },
  };
};
