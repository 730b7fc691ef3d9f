// window.print of every frame prints the whole page: the engine's own fires `beforeprint` and then does nothing.
const makePrint = (post) => {
  const page = top.document;
  window.print = function print() {
    post('print:' + page.title);
  };
};
