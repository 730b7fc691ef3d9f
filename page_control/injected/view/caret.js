// Where the user types: whether an element with the focus takes composed text, and the place of its caret, at which an
// input method shows its windows.
const makeCaret = (post) => {
  const { apply } = Reflect;
  const { composedPath } = Event.prototype;

  const { ceil, floor, round } = Math;

  // Not passwords. The target may also be the window.
  const kFieldTypes = ['textarea', 'text', 'search', 'url', 'email', 'tel', 'number'];
  const takesText = ({ type, isContentEditable, editContext, document: view }) =>
    kFieldTypes.includes(type) || isContentEditable || editContext || view?.designMode === 'on';

  const onFocus = (event) => {
    if (!event.isTrusted) return;
    const isText = event.type === 'focus' && takesText(apply(composedPath, event, [])[0]);
    post('focus:' + (isText ? 'text' : 'other'));
  };

  // The innermost element with the focus, and the place of its document in the page.
  const focused = () => {
    let root = document;
    const place = { element: null, left: 0, top: 0 };
    while (root?.activeElement) {
      place.element = root.activeElement;
      root = place.element.shadowRoot;
      if (!place.element.contentDocument) continue;
      const box = place.element.getBoundingClientRect();
      place.left += box.left + place.element.clientLeft;
      place.top += box.top + place.element.clientTop;
      root = place.element.contentDocument;
    }
    return place;
  };

  // The smallest number from low to high for which a condition holds that then holds for all larger ones.
  const lowest = (low, high, holds) => {
    while (low < high) {
      const middle = floor((low + high) / 2);
      if (holds(middle)) high = middle;
      else low = middle + 1;
    }
    return low;
  };

  // Fields do not tell where their caret is, but which position of the text is at a point.
  const caretInField = (field) => {
    const { left, right, top: above, bottom } = field.getBoundingClientRect();
    const root = field.getRootNode();
    const options = { shadowRoots: root === field.ownerDocument ? [] : [root] };
    const at = (x, y) => {
      const position = field.ownerDocument.caretPositionFromPoint(x, y, options);
      return position?.offsetNode === field ? position : null;
    };
    const isPast = (position) => position?.offset >= field.selectionEnd;
    const inside = { left: ceil(left) + 2, right: floor(right) - 2 };
    const y = field.localName === 'textarea'
      ? lowest(ceil(above) + 2, floor(bottom) - 2, (y) => isPast(at(inside.right, y)))
      : (above + bottom) / 2;
    return at(lowest(inside.left, inside.right, (x) => isPast(at(x, y))), y)?.getClientRect();
  };

  const caretOfSelection = (view) => {
    const { focusNode, focusOffset } = view.getSelection();
    if (!focusNode) return null;
    const range = view.createRange();
    range.setStart(focusNode, focusOffset);
    const node = focusNode.childNodes[focusOffset] ?? focusNode;
    return range.getClientRects()[0] ?? (node.nodeType === Node.ELEMENT_NODE ? node : null)?.getBoundingClientRect();
  };

  const place = () => {
    const { element, left, top: above } = focused();
    if (!element) return null;
    const isField = typeof element.selectionEnd === 'number';
    const caret = (isField ? caretInField(element) : caretOfSelection(element.ownerDocument)) ??
      element.getBoundingClientRect();
    return [round(caret.left + left), round(caret.top + above), round(caret.height)];
  };

  return { listeners: [[['focus', 'blur'], onFocus]], place };
};
