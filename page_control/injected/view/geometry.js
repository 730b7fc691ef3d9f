// A box in the window of an element, as a box of the page.
const inPage = (element, { left, top: above, width, height }) => {
  for (let frame = element.ownerDocument.defaultView.frameElement; frame;
    frame = frame.ownerDocument.defaultView.frameElement) {
    const box = frame.getBoundingClientRect();
    left += box.left + frame.clientLeft;
    above += box.top + frame.clientTop;
  }
  return { left, above, width, height };
};
