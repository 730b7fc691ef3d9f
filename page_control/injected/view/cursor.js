// The CSS keyword of the cursor at a point of the page.
const makeCursor = () => {
  // The innermost element, and the point in its own document.
  const elementAt = (x, y) => {
    let root = document;
    let found = null;
    for (;;) {
      const element = root.elementFromPoint(x, y);
      if (!element || element === found) break;
      found = element;
      if (element.contentDocument) {
        const { left, top: above } = element.getBoundingClientRect();
        x -= left + element.clientLeft;
        y -= above + element.clientTop;
        root = element.contentDocument;
      } else if (element.shadowRoot) {
        root = element.shadowRoot;
      } else {
        break;
      }
    }
    return { element: found, x, y };
  };

  const kTextFields = 'textarea, input:not([type=button], [type=submit], [type=reset], [type=checkbox], [type=radio], ' +
    '[type=range], [type=color], [type=file], [type=image])';

  const isOverText = (element, x, y) => {
    const view = element.ownerDocument;
    const caret = view.caretRangeFromPoint(x, y);
    const node = caret?.startContainer;
    if (node?.nodeType !== Node.TEXT_NODE || node.parentNode !== element) return false;
    const range = view.createRange();
    range.selectNodeContents(node);
    for (const { left, right, top: above, bottom } of range.getClientRects())
      if (x >= left && x <= right && y >= above && y <= bottom) return true;
    return false;
  };

  return (left, above) => {
    const { element, x, y } = elementAt(left, above);
    if (!element) return 'default';
    const { cursor, userSelect } = element.ownerDocument.defaultView.getComputedStyle(element);
    // The value may list images; the last item is always a keyword.
    if (cursor !== 'auto') return cursor.split(',').pop().trim();
    if (element.isContentEditable || element.matches(kTextFields)) return 'text';
    return userSelect !== 'none' && isOverText(element, x, y) ? 'text' : 'default';
  };
};
