// Forwards what the page copies to the host, and copies the system's text to the engine's clipboard.
const makeClipboard = (core, post) => {
  const { addEventListener, removeEventListener } = EventTarget.prototype;
  const { apply } = Reflect;
  const text = String;

  const selectedText = () => {
    const field = document.activeElement;
    if (field?.type === 'password') return '';
    if (typeof field?.selectionStart === 'number') return field.value.substring(field.selectionStart, field.selectionEnd);
    return text(getSelection());
  };

  // The page's own listeners may have replaced the text.
  const afterCopy = (event) => {
    const copied = event.defaultPrevented ? event.clipboardData.getData('text/plain') : selectedText();
    if (copied) post('copied:' + copied);
  };

  const onCopy = (event) => {
    if (core.clipboardText === undefined) {
      apply(removeEventListener, window, [event.type, afterCopy]);
      apply(addEventListener, window, [event.type, afterCopy]);  // after all others
      return;
    }
    // setClipboard() is copying, which the page must not notice.
    event.clipboardData.setData('text/plain', core.clipboardText);
    event.preventDefault();
    event.stopImmediatePropagation();
  };

  return {
    listeners: [[['copy', 'cut'], onCopy]],
    hasSelection: () => selectedText() !== '',
    setClipboard: (clipboardText) => {
      core.clipboardText = clipboardText;
      try {
        document.execCommand('copy');
      } finally {
        core.clipboardText = undefined;
      }
    },
  };
};
