// The lock of the pointer by an element of the page. Only the element's own document can release it.
const makeLock = (core, post) => {
  const exit = document.exitPointerLock.bind(document);

  const onChange = () => {
    const isLocked = document.pointerLockElement !== null;
    core.unlock = isLocked ? exit : null;
    post('lock:' + (isLocked ? 'on' : 'off'));
  };

  return {
    listeners: [[['pointerlockchange'], onChange]],
    unlock: () => { core.unlock?.(); },
  };
};
