// What the page receives of its window's state. While script is paused in a native call, the engine loses the events of a
// new size: those of the window, and of elements that the page observes, as which the root element stands here.
const makeWindow = (post) => {
  const nextFrame = requestAnimationFrame;
  const styleOf = getComputedStyle;
  const Observer = ResizeObserver;
  const { observe } = Observer.prototype;
  const { apply } = Reflect;
  let watches = 0;

  const windowSize = () => innerWidth + ' ' + innerHeight;
  const rootSize = () => {
    const { width, height } = styleOf(document.documentElement);
    return width + ' ' + height;
  };
  let seenSize = windowSize();
  let seenRoot;

  const onResize = ({ isTrusted, target }) => {
    if (isTrusted && target === window) seenSize = windowSize();
  };
  const observeRoot = () => {
    const observer = new Observer(() => { seenRoot = rootSize(); });
    apply(observe, observer, [document.documentElement]);
  };

  // An event may come with the second frame after the change.
  const watchSize = () => {
    const watch = ++watches;
    const report = () => {
      if (watch !== watches) return;
      const isSeen = seenSize === windowSize() && (seenRoot ??= rootSize()) === rootSize();
      post('size:' + (isSeen ? 'seen' : 'missed'));
    };
    nextFrame(() => nextFrame(report));
  };

  return {
    listeners: [
      [['resize'], onResize],
      [['DOMContentLoaded'], observeRoot],
      [['fullscreenchange'], () => post('fullscreen:' + (document.fullscreenElement ? 'on' : 'off'))],
    ],
    watchSize,
  };
};
