// What is under the pointer at a point of the page: the CSS keyword of the cursor, and the text of a tooltip.
const makePointer = () => {
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

  const cursorAt = (left, above) => {
    const { element, x, y } = elementAt(left, above);
    if (!element) return 'default';
    const { cursor, userSelect } = element.ownerDocument.defaultView.getComputedStyle(element);
    // The value may list images; the last item is always a keyword.
    if (cursor !== 'auto') return cursor.split(',').pop().trim();
    if (element.isContentEditable || element.matches(kTextFields)) return 'text';
    return userSelect !== 'none' && isOverText(element, x, y) ? 'text' : 'default';
  };

  const parentOf = (element) => element.assignedSlot ?? element.parentElement ?? element.getRootNode().host;

  const ownTitle = (element) => {
    const drawn = 'ownerSVGElement' in element && [...element.children].find(({ localName }) => localName === 'title');
    return drawn ? drawn.textContent.trim() : element.getAttribute('title');
  };

  // That of the nearest element that has one, even if it is empty.
  const titleAt = (left, above) => {
    for (let { element } = elementAt(left, above); element; element = parentOf(element)) {
      const title = ownTitle(element);
      if (title !== null) return title;
    }
    return '';
  };

  return { cursorAt, titleAt };
};
