// What the page drags, and what it does with the data of a drag.
const makeDrag = (core) => {
  const { apply } = Reflect;
  const { composedPath } = Event.prototype;
  const { round } = Math;

  // Pages draw images that are in no document.
  const { setDragImage } = DataTransfer.prototype;
  DataTransfer.prototype.setDragImage = new Proxy(setDragImage, {
    apply: (original, self, values) => {
      if (core.dragged) core.dragged.chosen = { element: values[0], x: values[1], y: values[2] };
      return apply(original, self, values);
    },
  });

  const onStart = (event) => {
    if (!event.isTrusted) return;
    core.dragged = { element: apply(composedPath, event, [])[0], x: event.clientX, y: event.clientY };
    core.dragEffect = null;
  };
  const onOver = (event) => {
    if (event.isTrusted) core.dragOver = event;
  };
  // The engine does not learn what another program did with the data.
  const onEnd = (event) => {
    if (!event.isTrusted) return;
    if (core.dragEffect) event.dataTransfer.dropEffect = core.dragEffect;
    core.dragged = null;
  };

  // The page's choice for the last position, after its listeners have run. Fields take text by themselves.
  const effect = () => {
    const event = core.dragOver;
    core.dragOver = null;
    if (!event) return 'none';
    const { dropEffect, types } = event.dataTransfer;
    if (event.defaultPrevented) return dropEffect;
    const { type, isContentEditable } = apply(composedPath, event, [])[0] ?? event.target;
    const isField = isContentEditable || ['textarea', 'text', 'search', 'url', 'email', 'tel', 'number'].includes(type);
    if (isField && types.includes('text/plain')) return core.dragged && !event.ctrlKey ? 'move' : 'copy';
    return type === 'file' && types.includes('Files') ? 'copy' : 'none';
  };

  const boxOf = (element) => {
    const selection = element.ownerDocument.getSelection();
    const isSelected = element.nodeType !== Node.ELEMENT_NODE;
    return isSelected ? selection.getRangeAt(0).getBoundingClientRect() : element.getBoundingClientRect();
  };

  // As a data URL; empty for other elements, and for pictures of other origins.
  const pictureOf = (element) => {
    const isPicture = element.localName === 'img' || element.localName === 'canvas';
    if (!isPicture) return '';
    const canvas = document.createElement('canvas');
    canvas.width = element.offsetWidth || element.width;
    canvas.height = element.offsetHeight || element.height;
    try {
      canvas.getContext('2d').drawImage(element, 0, 0, canvas.width, canvas.height);
      return canvas.toDataURL();
    } catch {
      return '';
    }
  };

  const image = () => {
    if (!core.dragged) return null;
    const { element, x, y, chosen } = core.dragged;
    const picture = chosen ? pictureOf(chosen.element) : '';
    const shown = chosen?.element.isConnected ? chosen.element : element;
    const box = boxOf(shown);
    const { left, above, width, height } = inPage(shown, box);
    const hotSpot = chosen ? [chosen.x, chosen.y] : [x - box.left, y - box.top];
    return [round(left), round(above), round(width), round(height), round(hotSpot[0]), round(hotSpot[1]), picture];
  };

  return {
    listeners: [[['dragstart'], onStart], [['dragenter', 'dragover'], onOver], [['dragend'], onEnd]],
    image,
    effect,
    end: (name) => { core.dragEffect = name; },
  };
};
