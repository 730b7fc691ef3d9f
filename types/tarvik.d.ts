/**
 * What a page finds in the host: `window.external` with its plug-ins, and the globals that are there before its first
 * script runs. This file is the reference: the pages of the reference are made from it, and the tests compare it with
 * the host and run its examples.
 *
 * Beside it stands the library of the browser (`"lib": ["dom", "es5"]`).
 *
 * - A member that is called wrongly throws an {@link Tarvik.StatusError | Error} with a status as its `number`:
 *   0x80004001 for a wrong number of arguments and for a read of a method, 0x80070057 for an argument of the wrong
 *   kind. A member that fails in its work answers `false` or `null`. What differs is told with the member.
 * - Options that are missing or of the wrong kind count as absent, and only `true` and `false` count as booleans.
 * - "Whole number" is one in 32 bits with a sign; others are refused where one is asked for.
 *
 * @packageDocumentation
 */

/**
 * The native powers of a page. A plug-in is read by its name, and the name is exact.
 *
 * A *retained* plug-in is one object for each window, and keeps its state when the page navigates; a *transient* one
 * is a new object at each read. What comes from here belongs to the host: it may be callable, and `typeof` may call it
 * a function.
 *
 * @example
 * external.menu === external.menu;  //= true
 * external.stream === external.stream;  //= false
 * external.noSuchPlugin;  //= undefined
 */
interface External {
  /** The window that the page lives in, its dialogs and its events; *retained*. */
  readonly window: Tarvik.Window;
  /** Menus that open at a place, and menu bars; *retained*. */
  readonly menu: Tarvik.Menus;
  /** The window's icon at the end of the task bar; *retained*. */
  readonly tray: Tarvik.Tray;
  /** Keys that are heard wherever the user works; *retained*. */
  readonly hotkey: Tarvik.Hotkey;
  /** The pointer and its buttons; *retained*. */
  readonly mouse: Tarvik.Mouse;
  /** Files that are dragged onto elements of the page; *retained*. */
  readonly dragfile: Tarvik.DragFile;
  /** Digests of texts; *retained*. */
  readonly hash: Tarvik.Hash;
  /** The author's log; *retained*. */
  readonly console: Tarvik.Console;

  /**
   * Loads a plug-in library. Its name is then read like that of a built-in plug-in: `window.external.name`.
   *
   * @param path - The library's file; a relative path counts from the program's current folder.
   * @returns `false` if the file is no image for this system, or one for 32-bit x86. A library that is an image but no
   *   plug-in is `true` as well.
   * @throws 0x80070057 without a path.
   *
   * @example
   * window.external.loadPlugin('notes.txt');  //= false
   */
  loadPlugin(path: string): boolean;

  /**
   * Opens a further window of the program. It is hidden until its page, or this one, shows it.
   *
   * @returns The new window's plug-in `window`, or `null` if there is no such page. A relative `url` on a page from a
   *   web server gives no window.
   * @throws 0x80070057 without options.
   *
   * @example
   * var other = createWindow({ url: 'second.html', inherit: true, context: 7 });
   * other.isVisible();  //= false
   * other.close();
   */
  createWindow(options: Tarvik.CreateWindowOptions): Tarvik.Window | null;

  /** The plug-ins that libraries bring, by their names; `undefined` for a name that there is no plug-in for. */
  [pluginName: string]: any;
}

/**
 * The plug-in of a name: `window.external[pluginName]`.
 *
 * @returns `undefined` for a name that there is no plug-in for.
 *
 * @example
 * queryModule('mouse').LBTN;  //= 0
 * queryModule('noSuchPlugin');  //= undefined
 */
declare function queryModule<Name extends keyof External>(pluginName: Name): External[Name];

/**
 * Loads a plug-in library: {@link External.loadPlugin | window.external.loadPlugin}.
 *
 * @example
 * loadPlugin('no such library.dll');  //= false
 */
declare function loadPlugin(path: string): boolean;

/**
 * Opens a further window: {@link External.createWindow | window.external.createWindow}.
 *
 * @example
 * createWindow({ url: 'no such page.html' });  //= null
 */
declare function createWindow(options: Tarvik.CreateWindowOptions): Tarvik.Window | null;

/**
 * The option `callback` of the {@link External.createWindow | createWindow} that opened the page's window. The host
 * never calls it: the page does, when and how the two pages agree on.
 *
 * Only the first page of such a window has it, `undefined` where the option was not given. There is no such global in
 * the program's first window.
 */
declare var windowCallback: any;

/**
 * The option `context` of the {@link External.createWindow | createWindow} that opened the page's window, as with
 * {@link windowCallback}.
 */
declare var windowContext: any;

/**
 * Shows a message box of the plug-in `window`, in place of the engine's own `alert`; the page stands still until it is
 * answered.
 *
 * @param content - The message; what is no text becomes one by `String`.
 * @param icon - As the option {@link Tarvik.MessageBoxOptions.icon | icon} of `messageBox`: `'information'` without
 *   it.
 * @param title - The title; without it, that of the window.
 *
 * @example
 * alert('The beans are up.', 'information', 'Garden planner');  //= undefined
 */
declare function alert(content: any, icon?: Tarvik.MessageBoxIcon, title?: string): void;

/**
 * The engine's own `alert`, on a page without frames.
 *
 * @example
 * typeof _alert;  //= 'function'
 */
declare function _alert(message?: any): void;

/**
 * Ends the script: throws an `Error` by the plug-in `system`, and the script goes no further.
 *
 * @throws 0x80004004, always.
 *
 * @example
 * try {
 *   abort();
 * } catch (error) {
 *   error.number;  //= -2147467260
 * }
 */
declare function abort(): never;

/**
 * The global `console` is the plug-in `console`, in place of the engine's own. It has the members of
 * {@link Tarvik.Console} and no others.
 */
interface Console extends Tarvik.Console {}

declare namespace Tarvik {
  /** What members throw. */
  interface StatusError extends Error {
    /** The status, a negative number: -2147467263 is 0x80004001. */
    number: number;
  }

  /**
   * Data that a member gives: it can be read, written and enumerated. It belongs to the host, so `Array.isArray` and
   * the methods of script's own arrays do not apply, but for `push`.
   */
  interface List<Item> {
    length: number;
    [index: number]: Item;
    /** Appends one item. */
    push(item: Item): void;
  }

  /**
   * The options of {@link External.createWindow | createWindow}.
   *
   * @example
   * function tellOpener() { windowCallback('The bed in the ' + windowContext.bed + ' is sown.'); }  // in second.html
   * var other = createWindow({
   *   url: 'second.html',
   *   context: { bed: 'north' },
   *   callback: function (text) { console.log(text); }
   * });
   * other.close();
   */
  interface CreateWindowOptions {
    /**
     * The page; a relative one counts from the page that calls. Without it, the page of the program's first window.
     */
    url?: string;
    /** The new window belongs to this one: it stays above it and closes with it. */
    inherit?: boolean;
    /** What the new page finds as its global {@link windowCallback}. */
    callback?: any;
    /** What the new page finds as its global {@link windowContext}. */
    context?: any;
  }

  /**
   * The plug-in `window`: the window that a page lives in.
   *
   * It is hidden until the page shows it. Closing it does not end the program, also when it is the last one: the page
   * calls {@link quit}, in {@link onClosed} for example. What a page sets stays when the next page comes, functions
   * included; the function of a page that has gone fails and is passed over.
   *
   * Places and sizes are pixels of the screen, and sizes count the frame. Numbers are taken as the system converts
   * them: fractions are rounded, and what is no number counts as 0.
   *
   * Functions are replaced by others, and cannot be taken out: `null` is refused with 0x80070057.
   *
   * @example
   * var win = window.external.window;
   * win.title = 'Garden planner';
   * win.setWindowPos(40, 40, 640, 480);  //= true
   * win.show(true);  //= true
   * win.title;  //= 'Garden planner'
   * win.width;  //= 640
   */
  interface Window {
    /**
     * Shows the window and brings it to the front, or hides it. A window that is minimized or maximized becomes a
     * plain one again.
     *
     * @returns `true`.
     *
     * @example
     * var win = window.external.window;
     * win.show(false);
     * win.isVisible();  //= false
     * win.show(true);
     * win.isVisible();  //= true
     * win.isForeWindow();  //= true
     */
    show(visible: boolean): boolean;

    /**
     * Closes the window, without asking {@link onClose}.
     *
     * @returns `true`.
     *
     * @example
     * var other = createWindow({ url: 'second.html' });
     * other.close();  //= true
     */
    close(): boolean;

    /**
     * Ends the program. Windows go without being closed, so {@link onClosed} is not called, and an icon of `tray` that
     * is not hidden before stays until the pointer comes over it.
     *
     * @param code - The program's exit code, a whole number; 0 without it.
     * @throws 0x80070057 if the code is no whole number.
     *
     * @example
     * document.onkeydown = function (event) {
     *   if (event.ctrlKey && event.keyCode === 81) external.window.quit(0);  // Ctrl+Q
     * };
     */
    quit(code?: number): void;

    /**
     * Minimizes the window, without asking {@link onMinimize}. It counts as shown all the same.
     *
     * @returns `true`.
     *
     * @example
     * var win = window.external.window;
     * win.minimize();  //= true
     * win.isVisible();  //= true
     * win.show(true);
     */
    minimize(): boolean;

    /**
     * Moves the window to the centre of the screen.
     *
     * @returns `true`.
     *
     * @example
     * var win = window.external.window;
     * win.setWindowPos(0, 0, 400, 300);
     * win.centerWindow();  //= true
     * win.left > 0 && win.top > 0;  //= true
     */
    centerWindow(): boolean;

    /**
     * Shows a progress bar on the window's button in the task bar. Nothing happens where the system has none.
     *
     * @returns `true`.
     * @throws 0x80070057 if `total` is 0.
     *
     * @example
     * var win = window.external.window;
     * win.isSupportTaskbarProgress();  //= true
     * win.setTaskbarProgressState('normal');  //= true
     * win.setTaskbarProgress(20, 50);  //= true
     * win.setTaskbarProgressState('none');  //= true
     */
    setTaskbarProgress(completed: number, total: number): boolean;

    /**
     * Says how the progress in the task bar looks.
     *
     * @param state - `'none'`: no bar; `'cycle'`: work without a measure; `'normal'`; `'error'`: red; `'pause'`:
     *   yellow. The case of letters does not count.
     * @returns Whether it was applied: `false` for another word, and where the system shows no progress.
     */
    setTaskbarProgressState(state: 'none' | 'cycle' | 'normal' | 'error' | 'pause'): boolean;

    /** Whether the system shows progress in the task bar. */
    isSupportTaskbarProgress(): boolean;

    /**
     * Asks the user for a file.
     *
     * The dialog belongs to the window, which is disabled until it is answered. The page's call waits that long, while
     * other windows, and calls into the page, go on.
     *
     * @returns The file's full path; `null` if nothing was chosen.
     * @throws 0x80070057 if the options are no object.
     *
     * @example
     * var path = external.window.selectFile({
     *   title: 'Open a plan',
     *   filter: 'Texts\0*.txt\0All files\0*.*\0',
     *   fileMustExist: true
     * });
     * path;  //= null
     *
     * @example
     * var path = external.window.selectFile({ title: 'Save the plan', saveMode: true, overwritePrompt: true });
     * path;  //= null
     */
    selectFile(options?: SelectFileOptions & { multi?: false }): string | null;
    /**
     * Asks the user for several files, with the option `multi`.
     *
     * @returns The full paths, in an `Array` of the page even for one; `null` if nothing was chosen. The list ends
     *   before a path of 260 characters or more. Paths from the root of a drive have two backslashes, as in
     *   `C:\\a.txt`.
     *
     * @example
     * var paths = external.window.selectFile({ title: 'Plans to open', initDir: '.', multi: true });
     * for (var i = 0; paths && i < paths.length; i++) console.log(paths[i]);
     * paths;  //= null
     */
    selectFile(options: SelectFileOptions): string[] | null;

    /**
     * Asks the user for a folder. The page's call waits, as with {@link selectFile}.
     *
     * @returns The folder's path; `null` if nothing was chosen.
     * @throws 0x80070057 if the options are no object.
     *
     * @example
     * var folder = external.window.selectFolder({ title: 'Where are the plans?', newFolderButton: true });
     * folder;  //= null
     */
    selectFolder(options?: SelectFolderOptions): string | null;

    /**
     * Takes a name for the window, and tells whether no other window has it. An application that shall run only once
     * asks for its name at the start.
     *
     * The window keeps the name until it closes or asks for another one; the same name again is no other one. All
     * programs of the desktop share the names.
     *
     * @returns `false` if another window has the name, and for an empty one. A name that the system refuses, such as
     *   one with a backslash, is `true` for everybody.
     *
     * @example
     * var win = window.external.window;
     * if (win.isUniqueWindow('Garden planner')) {
     *   win.show(true);  //= true
     * } else {
     *   win.showExistedWindow();
     *   win.quit(0);
     * }
     */
    isUniqueWindow(name: string): boolean;

    /**
     * Brings up the window that has the name, also a hidden or minimized one.
     *
     * @returns Whether it has shown a window. Without an {@link isUniqueWindow} that was `false` before, it does
     *   nothing.
     *
     * @example
     * var other = createWindow({ url: 'second.html' });
     * other.isUniqueWindow('Seed list');  //= true
     * external.window.isUniqueWindow('Seed list');  //= false
     * external.window.showExistedWindow();  //= true
     * other.isVisible();  //= true
     * other.close();
     */
    showExistedWindow(): boolean;

    /**
     * Shows a message box, and waits until it is answered. The answer comes by the functions.
     *
     * The box belongs to the window, which is disabled meanwhile. Other windows, and calls into the page, go on.
     *
     * @returns Whether the box was shown, whatever was answered.
     *
     * @example
     * var answer = '';
     * external.window.messageBox({
     *   caption: 'Garden planner', text: 'Clear the bed?', type: 'okCancel', icon: 'warning',
     *   onOk: function () { answer = 'clear it'; },
     *   onCancel: function () { answer = 'leave it'; }
     * });
     * answer;  //= 'leave it'
     *
     * @example
     * function askToSave(save) {
     *   external.window.messageBox({ text: 'Save the plan?', type: 'yesNo', onYes: save, onNo: function () {} });
     * }
     */
    messageBox(options: MessageBoxOptions): boolean;

    /** Whether the window is shown. One that is minimized is. */
    isVisible(): boolean;

    /** Whether the window is the one that the user works with. */
    isForeWindow(): boolean;

    /**
     * Sets place and size at once.
     *
     * @returns Whether that was done.
     * @throws 0x80070057 if the width or the height is 0; nothing moves then.
     *
     * @example
     * var win = window.external.window;
     * win.setWindowPos(0, 0, win.workAreaWidth / 2, win.workAreaHeight);  //= true
     * win.left;  //= 0
     */
    setWindowPos(x: number, y: number, width: number, height: number): boolean;

    /**
     * The width of the window; 0 is refused with 0x80070057. A shaped window keeps its size.
     *
     * @example
     * var win = window.external.window;
     * win.width = 500;
     * win.height = 400;
     * win.width + ' x ' + win.height;  //= '500 x 400'
     */
    width: number;
    /** The height of the window; 0 is refused with 0x80070057. A shaped window keeps its size. */
    height: number;
    /**
     * The place of the window's left edge on the screen.
     *
     * @example
     * var win = window.external.window;
     * win.left = 20;
     * win.top = 10;
     * win.left + ', ' + win.top;  //= '20, 10'
     */
    left: number;
    /** The place of the window's upper edge on the screen. */
    top: number;
    /** The width of the part of the first screen that the task bar leaves. */
    readonly workAreaWidth: number;
    /** The height of the part of the first screen that the task bar leaves. */
    readonly workAreaHeight: number;
    /** The title of the window. A read cuts it at 999 characters. */
    title: string;

    /**
     * Whether the caption has a box to minimize. It shows when the frame is next drawn.
     *
     * @example
     * var win = window.external.window;
     * win.minimizeBox = false;
     * win.maximizeBox = false;
     * win.sysMenu = true;
     */
    set minimizeBox(value: boolean);
    /** Whether the caption has a box to maximize. It shows when the frame is next drawn. */
    set maximizeBox(value: boolean);
    /** Whether the caption has a menu, and with it its boxes. They show when the frame is next drawn. */
    set sysMenu(value: boolean);

    /**
     * Whether the window has a frame. Without one the page fills the window.
     *
     * Its outermost 6 pixels size the window then, unless {@link resize} is `false`, and the user drags it by elements
     * that are marked with the attribute `dragWindow`: the nearest element with `true` or `false` decides. Fields and
     * buttons (`input`, `textarea`, `button`) never drag it. A shaped window has no frame for good.
     *
     * @example
     * var win = window.external.window;
     * win.resize = false;
     * win.caption = false;  // a plain board, which <body dragWindow="true"> lets the user move
     * win.caption = true;
     * win.resize = true;
     */
    set caption(value: boolean);

    /**
     * Whether the window stays above others.
     *
     * @example
     * external.window.topMost = true;
     * external.window.topMost = false;
     */
    set topMost(value: boolean);

    /**
     * The smallest width that the user can size the window to; -1 takes the limit away, 0 is refused with 0x80070057.
     *
     * @example
     * var win = window.external.window;
     * win.minWidth = 320;
     * win.minHeight = 240;
     * win.maxWidth = win.workAreaWidth;
     * win.maxHeight = -1;  // none
     */
    set minWidth(value: number);
    /** The smallest height that the user can size the window to; -1 takes it away, 0 is refused with 0x80070057. */
    set minHeight(value: number);
    /** The largest width that the user can size the window to; -1 takes it away, 0 is refused with 0x80070057. */
    set maxWidth(value: number);
    /** The largest height that the user can size the window to; -1 takes it away, 0 is refused with 0x80070057. */
    set maxHeight(value: number);

    /**
     * Whether the user can size the window: by its frame, or where it has none by the outermost 6 pixels of the page.
     * It changes nothing on a shaped window.
     */
    set resize(value: boolean);

    /**
     * Gives the window the size of a picture, a bitmap file, and the shape of all its pixels that are not exactly
     * white (255, 255, 255). A relative path counts from the page.
     *
     * That is for good: from then on {@link caption}, {@link resize}, {@link width} and {@link height} change nothing.
     * A further picture replaces the shape. A file that is no bitmap changes nothing, and there is no word of it.
     *
     * @example
     * var badge = createWindow({ url: 'second.html' });
     * badge.shapeImage = 'badge.bmp';
     * badge.width = 777;
     * badge.width === 777;  //= false
     * badge.close();
     */
    set shapeImage(path: string);

    /**
     * The menu bar of the window; `null` as long as it has none. An object that is no menu changes nothing.
     *
     * It stays when the page changes; the functions of a page that has gone fail.
     *
     * @example
     * var bar = external.menu.createMenu('windowMenu'), file = external.menu.createMenu();
     * file.appendMenu({ name: '&Quit\tCtrl+Q', callback: function () { external.window.quit(0); } });
     * bar.appendMenu({ name: '&File', subMenu: file });
     * external.window.menu = bar;
     * external.window.menu.getItemCount();  //= 1
     */
    get menu(): Menu | null;
    set menu(value: Menu);

    /** Messages from window to window; the same object at each read. */
    readonly msg: Messages;

    /**
     * Called when the window goes; the page is still alive. It cannot refuse.
     *
     * @example
     * var other = createWindow({ url: 'second.html' });
     * other.onClosed = function () {
     *   other.isVisible();  //= false
     * };
     * other.close();
     */
    set onClosed(value: () => void);

    /**
     * Called when the user closes the window by its box, its menu or Alt+F4. It refuses by answering `false`, and only
     * by that: an error in it does not refuse.
     *
     * @example
     * var isDirty = false, win = window.external.window;
     * win.onClose = function () { return !isDirty; };
     * win.onMinimize = function () { console.log('out of sight'); };
     * win.onMaximize = function () { return win.workAreaWidth > 800; };
     * win.onRestore = function () { console.log('back again'); };
     */
    set onClose(value: () => boolean | void);
    /** Called when the user minimizes the window. It refuses by answering `false`, and only by that. */
    set onMinimize(value: () => boolean | void);
    /**
     * Called when the user maximizes the window. It refuses by answering `false`, and only by that. A double click on
     * the caption maximizes without it.
     */
    set onMaximize(value: () => boolean | void);
    /**
     * Called when the user brings the window back from being minimized or maximized. It refuses by answering `false`,
     * and only by that.
     */
    set onRestore(value: () => boolean | void);

    /**
     * Called when the window gets the user's attention.
     *
     * @example
     * var win = window.external.window;
     * win.onActivate = function () { document.body.className = 'awake'; };
     * win.onInactivate = function () { document.body.className = ''; };
     * win.onShutdown = function () { console.log('good night'); };
     */
    set onActivate(value: () => void);
    /** Called when the window loses the user's attention. */
    set onInactivate(value: () => void);
    /** Called when the system ends. It cannot refuse. */
    set onShutdown(value: () => void);
  }

  /** The icons of a message box. */
  type MessageBoxIcon = 'information' | 'error' | 'warning' | 'question';

  /** The options of {@link Window.messageBox}. */
  interface MessageBoxOptions {
    /** The title; empty without it. */
    caption?: string;
    /** The message; empty without it. */
    text?: string;
    /**
     * The buttons; `'ok'` for anything else. The case of letters does not count. The key Escape presses the one button
     * of an `ok` box.
     */
    type?: 'ok' | 'okCancel' | 'yesNo';
    /** The icon; without it a question for `yesNo`, else information. The case of letters does not count. */
    icon?: MessageBoxIcon;
    /** Called for the button OK, when the box is gone and before `messageBox` returns; the others likewise. */
    onOk?(): void;
    /** Called for the button Cancel, also for Escape and for the box of the caption. Not for an `ok` box. */
    onCancel?(): void;
    /** Called for the button Yes. */
    onYes?(): void;
    /** Called for the button No. */
    onNo?(): void;
  }

  /** The options of {@link Window.selectFile}. Only `true` switches one on: `1` does not. */
  interface SelectFileOptions {
    /** The dialog's title; without it, the system's. */
    title?: string;
    /**
     * Pairs of a description and a pattern, each ended by a zero character: `'Text files\0*.txt\0All files\0*.*\0'`.
     */
    filter?: string;
    /** The first folder; a relative one counts from the page, a URL stays as it is. */
    initDir?: string;
    /** Several files may be chosen. */
    multi?: boolean;
    /**
     * Only files that exist may be chosen; their folder must exist in any case. Has no effect with `overwritePrompt`,
     * unless `multi` is given.
     */
    fileMustExist?: boolean;
    /** The dialog asks before a file is replaced; not with `multi`. */
    overwritePrompt?: boolean;
    /** The dialog is the one for saving; not with `multi`. */
    saveMode?: boolean;
  }

  /** The options of {@link Window.selectFolder}. */
  interface SelectFolderOptions {
    /** The text above the folders. */
    title?: string;
    /** The folder that is selected at first; a relative one counts from the page, a URL stays as it is. */
    initDir?: string;
    /** The dialog can make a folder. */
    newFolderButton?: boolean;
  }

  /**
   * `window.external.window.msg`: messages between windows, in one program or between several on the same desktop.
   *
   * A message has a name and a text, and goes to every window that receives for an identifier. Any program of the
   * desktop can send, so a message is to be read like anything that comes from outside.
   *
   * Functions stay when the page changes; those of a page that has gone fail, and keep the name. A page that leaves
   * should take its own out. The object of a window that has gone may throw 0x80004005 at each use.
   *
   * @example
   * var msg = external.window.msg;
   * msg.uniqueID = 'viewer';
   * msg.registerMsg('open', function (path, context) {
   *   path;  //= 'notes.txt'
   *   context;  //= 7
   * }, 7);
   * msg.sendMsg('viewer', 'open', 'notes.txt');  //= true
   * msg.unregisterMsg('open');  //= true
   */
  interface Messages {
    /**
     * Receives messages of a name.
     *
     * @param callback - Called with the payload, `''` if there is none, and the context. What it answers goes nowhere:
     *   an answer is a message. It may itself send, also back to where the message came from.
     * @param context - Is handed to the function.
     * @returns `false` if there is a function for the name already, which stays.
     * @throws 0x80070057 if the name is no string or the function is missing.
     *
     * @example
     * var msg = external.window.msg;
     * msg.registerMsg('water', function (text) { console.log(text); });  //= true
     * msg.registerMsg('water', function () {});  //= false
     * msg.unregisterMsg('water');
     */
    registerMsg(name: string, callback: (payload: string, context: any) => void, context?: any): boolean;

    /**
     * Takes the function for a name out.
     *
     * @returns `true`, also for an unknown name.
     */
    unregisterMsg(name: string): boolean;

    /**
     * Sends a message to all windows of an identifier, this one included. It returns when every function has come to
     * its end, and waits as long as they take.
     *
     * It does not tell whether a window had a function for the message, nor how that ended.
     *
     * @param identifier - Ends at its first zero character, like the name.
     * @param payload - A text, which may hold zero characters. Anything else counts as none, so numbers are written
     *   `String(5)` and objects `JSON.stringify(object)`.
     * @returns Whether there was such a window.
     *
     * @example
     * external.window.msg.sendMsg('no such viewer', 'open', 'notes.txt');  //= false
     */
    sendMsg(identifier: string | number, name: string | number, payload?: string): boolean;

    /**
     * The identifier that this window receives for; `''` at first. The window goes on to receive for earlier ones.
     *
     * One that the system refuses, such as one of more than 255 characters, changes nothing.
     *
     * @example
     * external.window.msg.uniqueID = 'bed 7';
     * external.window.msg.uniqueID;  //= 'bed 7'
     */
    uniqueID: string;
  }

  /**
   * The plug-in `menu`: makes menus.
   *
   * @example
   * var recent = external.menu.createMenu(), menu = external.menu.createMenu();
   * recent.appendMenu({ name: 'notes.txt', callback: function (path) { console.log(path); }, context: 'notes.txt' });
   * menu.appendMenu({ name: 'Open &recent', subMenu: recent });
   * menu.appendMenu({ separator: true });
   * menu.appendMenu({ name: '&Close\tCtrl+W', callback: function () { external.window.close(); } });
   * document.oncontextmenu = function (event) { menu.popup(event.clientX, event.clientY); };
   * menu.getItemCount();  //= 3
   */
  interface Menus {
    /**
     * Makes a new menu, empty.
     *
     * @param type - `'popupMenu'`, which is meant without one; `'trayMenu'` for the icon of `tray`; `'windowMenu'` for
     *   a menu bar. The case of letters does not count.
     * @throws 0x80004001 if the type is another word.
     *
     * @example
     * external.menu.createMenu('windowMenu').getItemCount();  //= 0
     */
    createMenu(type?: 'popupMenu' | 'trayMenu' | 'windowMenu'): Menu;
  }

  /**
   * A menu. Items cannot be taken out: make a new menu instead.
   *
   * Items are found by the names that {@link appendMenu} got, `&` included, in any case of letters; of several items
   * of one name the first is meant.
   */
  interface Menu {
    /**
     * Appends an item. `false` means that this was done, `true` that it failed.
     *
     * It fails without a name, unless it is a separator, and if `subMenu` is no menu or holds this one. Every call in
     * the program, also one that fails, takes a number, and a menu bar can use the first 1001 of them: a program that
     * makes menus over and over builds its menu bar first.
     *
     * @example
     * var menu = external.menu.createMenu();
     * function water(bed) { console.log('Water for ' + bed); }
     * menu.appendMenu({ name: '&Water', callback: water, context: 'the north bed' });  //= false
     * menu.appendMenu({ name: '&Harvest', gray: true, callback: function () {} });  //= false
     * menu.appendMenu({});  //= true
     * menu.getItemCount();  //= 2
     */
    appendMenu(options: MenuItemOptions): boolean;

    /**
     * Opens the menu where the pointer is. It returns when the menu has gone and the function of the item has come to
     * its end; the page stands still until then, while other windows go on.
     *
     * @returns `false` for a menu bar and for a menu with no items, which do not open; else `true`, also when nothing
     *   was chosen. Only one menu is open at a time: a `popup` meanwhile opens nothing.
     *
     * @example
     * external.menu.createMenu().popup();  //= false
     */
    popup(): boolean;
    /**
     * Opens the menu at a place of the page, in pixels.
     *
     * @throws 0x80070057 if the place is not given in whole numbers.
     *
     * @example
     * var menu = external.menu.createMenu();
     * menu.appendMenu({ name: '&Water', callback: function () { console.log('watered'); } });
     * menu.popup(40, 30);  //= true
     */
    popup(x: number, y: number): boolean;

    /**
     * The menu that an item opens.
     *
     * @returns `undefined` if no item of that name opens one.
     * @throws 0x80070057 if the name is empty.
     *
     * @example
     * var menu = external.menu.createMenu(), seeds = external.menu.createMenu();
     * seeds.appendMenu({ name: 'Beans', callback: function () {} });
     * menu.appendMenu({ name: '&Seeds', subMenu: seeds });
     * menu.getSubMenu('&seeds').getItemCount();  //= 1
     * menu.getSubMenu('Tools');  //= undefined
     */
    getSubMenu(name: string): Menu | undefined;

    /**
     * Grays an item, or no longer. An item without a function that is enabled does nothing when it is chosen.
     *
     * @returns Whether there is an item of that name.
     *
     * @example
     * var menu = external.menu.createMenu();
     * menu.appendMenu({ name: '&Harvest', callback: function () {} });
     * menu.enable('&Harvest', false);  //= true
     * menu.enable('Harvest', false);  //= false
     */
    enable(name: string, on: boolean): boolean;

    /** How many items the menu has, separators included. */
    getItemCount(): number;
  }

  /** The options of {@link Menu.appendMenu}. */
  interface MenuItemOptions {
    /** The text. `&` stands before the letter that chooses it, and what is behind a `\t` is written at the right. */
    name?: string;
    /** It cannot be chosen at first. */
    gray?: boolean;
    /** A line, which needs no name. */
    separator?: boolean;
    /** It opens that menu, and has no function. A menu may be in several others, but not in itself. */
    subMenu?: Menu;
    /** Called when it is chosen; without a `context` it gets no argument. Without the function the item is gray. */
    callback?(context?: any): void;
    /** Is handed to the function. */
    context?: any;
  }

  /**
   * The plug-in `tray`: one icon for each window, at the end of the task bar.
   *
   * It goes with its window, not when the window is hidden, and stays when the page changes.
   * {@link Window.quit | quit} ends the program without closing its windows: call `hide` before it, or the icon stays
   * until the pointer comes over it.
   *
   * @example
   * var tray = external.tray, menu = external.menu.createMenu('trayMenu');
   * menu.appendMenu({ name: 'Quit', callback: function () { tray.hide(); external.window.quit(0); } });
   * tray.onClick = function () { external.window.show(true); };
   * tray.onDbClick = function () { external.window.centerWindow(); };
   * tray.onRClick = function () { menu.popup(); };
   * tray.addTray('Garden planner', 'leaf.ico');
   * tray.hide();
   */
  interface Tray {
    /**
     * Shows the icon. One that is shown keeps its picture and its tip: to change them, call {@link hide} first.
     *
     * @param tip - The tool tip, cut at 127 characters.
     * @param icon - The path of a file `.ico`, which counts from the page and may be a `file:` URL; without one it is
     *   the program's icon.
     * @throws The system's error if there is no such icon: 0x80070002 if there is no such file.
     *
     * @example
     * try {
     *   external.tray.addTray('Garden planner', 'no such leaf.ico');
     * } catch (error) {
     *   error.number;  //= -2147024894
     * }
     */
    addTray(tip: string, icon?: string): void;

    /**
     * Shows the icon again. Before {@link addTray} it has neither picture nor tip.
     *
     * @example
     * external.tray.addTray('Garden planner');
     * external.tray.hide();
     * external.tray.show();
     * external.tray.hide();
     */
    show(): void;
    /** Takes the icon away. */
    hide(): void;

    /** Called for a click on the icon. Both clicks of a double click are told here, too. */
    set onClick(value: () => void);
    /** Called for a double click on the icon. */
    set onDbClick(value: () => void);
    /** Called for a click with the right button on the icon. */
    set onRClick(value: () => void);
  }

  /** The plug-in `console`: the author's log. A page has it as its global `console`. */
  interface Console {
    /**
     * Writes a line to the debugger's channel.
     *
     * @param text - Only the first argument is written, and only if it is a string; a line ends at a zero character.
     * @throws 0x80004005 without an argument.
     *
     * @example
     * var rows = 3;
     * console.log('rows: ' + rows);
     */
    log(text: string): void;

    /**
     * Whether script errors are shown: `false` hides their dialog, any other value, and none at first, shows it.
     * Without the dialog scripts go on; in it the user may stop them.
     *
     * @example
     * external.console.showJsError = false;
     * external.console.showJsError;  //= false
     * external.console.showJsError = true;
     */
    showJsError: boolean;
  }

  /**
   * The plug-in `hotkey`: keys that call a function wherever the user works, also while the window is hidden.
   *
   * Nobody else hears of the keys, so a combination without `ctrl`, `alt` or `win` takes a key away from all programs.
   * What is set stays until it is cleared or the window goes, also when the page changes. The function of a page that
   * has gone does nothing any more, and keeps the keys: a page clears what it sets, before or after.
   *
   * @example
   * var hotkey = external.hotkey;
   * hotkey.clear('ctrl+alt+f5');
   * hotkey.set('ctrl+alt+f5', function (win) { win.show(true); }, external.window);  //= true
   * hotkey.clear('ctrl+alt+f5');  //= true
   */
  interface Hotkey {
    /**
     * Calls a function whenever the keys are pressed. A key that is held down calls again and again.
     *
     * @param keys - Any of `ctrl`, `shift`, `alt` and `win`, each with a `+` behind it, and one key: a character,
     *   which stands for the key that it is on, or `esc`, `pause`, `print`, `scroll`, `insert`, `delete`, `pageup`,
     *   `pagedown`, `home`, `end`, `up`, `down`, `left`, `right`, `tab`, `back`, `return`, `f1` to `f12`. The case of
     *   letters does not count. `+` cannot be the key, a character adds no shift of its own (`:` and `;` are one key),
     *   and `pause` is the key Break, which keyboards have as Ctrl+Pause only: it is set as `ctrl+pause`.
     * @param context - Is handed to the function.
     * @returns `false` if the text is no combination, this window has it already, or the system refuses it, for
     *   example because another program has it.
     * @throws 0x80070057 if the keys are no string or the function is missing.
     *
     * @example
     * external.hotkey.set('ctrl+no such key', function () {});  //= false
     */
    set(keys: string, callback: (context: any) => void, context?: any): boolean;

    /**
     * Ends what {@link set} has begun.
     *
     * @returns Whether this window had set the keys.
     *
     * @example
     * external.hotkey.clear('ctrl+shift+alt+pagedown');  //= false
     */
    clear(keys: string): boolean;
  }

  /**
   * The plug-in `mouse`: the pointer and its buttons.
   *
   * A button is a whole number, {@link LBTN}, {@link RBTN} or {@link MBTN}. Without one, and for any other number, the
   * left button is meant.
   *
   * @example
   * var mouse = window.external.mouse;
   * mouse.LBTN + ', ' + mouse.RBTN + ', ' + mouse.MBTN;  //= '0, 1, 2'
   */
  interface Mouse {
    /**
     * Whether a button is held down now. By the time that a page hears of a short press, the button may be up again.
     *
     * @throws 0x80070057 if the button is no whole number.
     *
     * @example
     * external.mouse.isBtnDown();  //= false
     * external.mouse.isBtnDown(external.mouse.RBTN);  //= false
     */
    isBtnDown(button?: number): boolean;

    /**
     * Presses a button where the pointer is, and lets go of it after 50 milliseconds, for which the page waits.
     *
     * @returns Whether that was done.
     * @throws 0x80070057 if the button is no whole number.
     *
     * @example
     * external.mouse.click(external.mouse.MBTN);  //= true
     */
    click(button?: number): boolean;
    /**
     * The same: the click is where the pointer is, not at `x` and `y`. To click elsewhere, write {@link Mouse.x} and
     * {@link Mouse.y} of the mouse first.
     */
    click(button: number, x: number, y: number): boolean;

    /**
     * Where the pointer is, in pixels from the left edge of the screen. Writing it keeps {@link Mouse.y}.
     *
     * @example
     * var mouse = window.external.mouse;
     * mouse.x = 200;
     * mouse.x;  //= 200
     */
    x: number;
    /**
     * Where the pointer is, in pixels from the upper edge of the screen. Writing it keeps {@link Mouse.x}.
     *
     * @example
     * var mouse = window.external.mouse, win = window.external.window;
     * mouse.x = win.left + win.width / 2;
     * mouse.y = win.top + win.height / 2;
     */
    y: number;

    /** The left button. */
    readonly LBTN: 0;
    /** The right button. */
    readonly RBTN: 1;
    /** The middle button. */
    readonly MBTN: 2;
  }

  /**
   * The plug-in `dragfile`: what the page does with files that are dragged from other programs onto its elements.
   *
   * An id stays bound when the page changes, and then means the element of the new page; the function of a page that
   * has gone does nothing any more. A page that leaves unbinds its ids.
   *
   * @example
   * external.dragfile.bind('inbox', function (paths, folder) {
   *   for (var i = 0; i < paths.length; i++) external.file.copy(paths[i], folder);
   * }, 'C:\\inbox');
   * external.dragfile.get('inbox').context;  //= 'C:\\inbox'
   * external.dragfile.bind('inbox', null);
   * external.dragfile.get('inbox');  //= undefined
   */
  interface DragFile {
    /**
     * Lets the user drag files onto the element of an id, and onto what is inside of it. It replaces what the id was
     * bound to.
     *
     * The nearest element that is bound takes the files; where there is none, they cannot be dropped. Ids are compared
     * exactly.
     *
     * @param callback - Called with the full paths of files and folders, and the context. A path has fewer than 260
     *   characters; a longer one is cut. With anything but a function the element takes no files any more.
     * @param context - Is handed to the function.
     * @throws 0x80070057 if the id is no string, and with fewer than two arguments.
     */
    bind(id: string, callback: ((paths: List<string>, context: any) => void) | null, context?: any): void;

    /**
     * What an id is bound to.
     *
     * @returns `undefined` if it is not bound.
     * @throws 0x80070057 if the id is no string.
     *
     * @example
     * external.dragfile.get('no such id');  //= undefined
     */
    get(id: string): DropBinding | undefined;
  }

  /** What {@link DragFile.bind} has noted for an id. */
  interface DropBinding {
    /** The function. */
    callback: (paths: List<string>, context: any) => void;
    /** What is handed to it. */
    context: any;
  }

  /**
   * The plug-in `hash`: digests of texts. None of the three is fit for secrets any more: they compare and name things.
   *
   * @example
   * var hash = window.external.hash;
   * hash.md5().addData('a').finish();  //= '0CC175B9C0F1B6A831C399E269772661'
   */
  interface Hash {
    /**
     * A new digest by SHA-1.
     *
     * @example
     * external.hash.sha1().addData('one ').addData('two').finish();  //= external.hash.sha1().addData('one two').finish()
     */
    sha1(): Digest;
    /** A new digest by MD5. */
    md5(): Digest;
    /** A new digest by MD4. */
    md4(): Digest;
  }

  /** A digest under way. */
  interface Digest {
    /**
     * Takes the UTF-8 form of a text. Only the sum of the pieces counts.
     *
     * @returns The object itself, so calls make a chain.
     * @throws 0x80004005 if it is no string.
     */
    addData(text: string): Digest;
    /** The digest in upper-case hexadecimal digits. It is final: what is added later changes nothing. */
    finish(): string;
  }
}
