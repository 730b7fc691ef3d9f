// A function for a DOM node: does what assistive technology requests.
function (action, text) {
  const element = this.nodeType === Node.ELEMENT_NODE ? this : this.parentElement;
  const { HTMLInputElement, HTMLOptionElement, HTMLSelectElement, HTMLTextAreaElement, MouseEvent, Event } =
    element.ownerDocument.defaultView;
  const fire = (target, type) => target.dispatchEvent(new Event(type, { bubbles: true, composed: true }));

  const select = (option) => {
    const list = option.closest('select');
    if (!list || list.disabled || option.disabled) return;
    option.selected = list.multiple ? !option.selected : true;
    fire(list, 'input');
    fire(list, 'change');
  };

  // Some pages react to the press already.
  const press = () => {
    element.focus?.();
    for (const type of ['mousedown', 'mouseup']) {
      element.dispatchEvent(new MouseEvent(type, {
        bubbles: true, cancelable: true, composed: true, detail: 1, view: element.ownerDocument.defaultView,
      }));
    }
    if (element.click) element.click();
    else element.dispatchEvent(new MouseEvent('click', { bubbles: true, cancelable: true, composed: true }));
  };

  const write = () => {
    if (element.disabled || element.readOnly) return;
    const isField = [HTMLInputElement, HTMLTextAreaElement, HTMLSelectElement].some((type) => element instanceof type);
    // Libraries replace the property of the element itself to notice changes of their own.
    if (isField) Object.getOwnPropertyDescriptor(Object.getPrototypeOf(element), 'value').set.call(element, text);
    else if (element.isContentEditable) element.textContent = text;
    else return;
    fire(element, 'input');
    fire(element, 'change');
  };

  if (action === 'focus') element.focus();
  else if (action === 'write') write();
  else if (element instanceof HTMLOptionElement) select(element);
  else press();
}
