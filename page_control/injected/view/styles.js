// Styles for controls that the engine would draw outside of the page's frames.
const applyStyles = (textIsSelectable) => {
  const adopt = (text) => {
    const sheet = new CSSStyleSheet();
    sheet.replaceSync(text);
    document.adoptedStyleSheets.push(sheet);
  };

  // Native drop-down lists are missing from the frames. A layer lets the page's own styles win, except that an important
  // declaration in a layer beats the page's, so that no page can bring the native list back.
  adopt(`@layer {
    select:not([multiple]):is(:not([size]), [size="0"], [size="1"]) {
      &, &::picker(select) { appearance: base-select !important; border: 1px solid #767676; }
      & { border-radius: 2px; min-block-size: 0; padding: 1px 4px; }
      &::picker-icon { font-size: 0.6em; align-self: center; }
      option { min-block-size: 0; padding: 1px 6px; }
      option::checkmark { display: none; }
      option:checked { background: #cce4f7; }
    }
  }`);
  if (!textIsSelectable)
    adopt('@layer { :root { user-select: none; } input, textarea { user-select: text; } }');
};
