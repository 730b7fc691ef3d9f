// What needs a window of the browser's own: there is none, so a call would wait for ever, and some of these windows would
// also take all input from the page. Nor can a page be asked for the fonts of the system: the list would be empty. A page finds
// out by the missing names.
const removeAbsent = () => {
  const remove = (object, names) => {
    for (const name of names) delete object?.[name];
  };
  remove(window, ['EyeDropper', 'documentPictureInPicture', 'queryLocalFonts']);
  remove(window.Navigator?.prototype, ['bluetooth', 'hid', 'serial', 'usb']);
  remove(window.MediaDevices?.prototype, ['getDisplayMedia']);
  remove(window.HTMLVideoElement?.prototype, ['requestPictureInPicture']);
  const setToFalse = (prototype, name) => Object.defineProperty(prototype, name, { get: () => false });
  setToFalse(Document.prototype, 'pictureInPictureEnabled');
  setToFalse(Navigator.prototype, 'webdriver');  // that is for programs that test pages
};
