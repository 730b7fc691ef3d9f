/**
 * Declares what a page finds in the host: `window.external` with its plug-ins, and the globals that exist before its
 * first script runs. The pages of the reference are generated from this file, and the tests compare it with the host
 * and run its examples.
 *
 * Use it together with TypeScript's libraries for the browser: `"lib": ["dom", "es5"]`. In the examples, `//= value`
 * states the value of the expression before it.
 *
 * - A call with wrong arguments throws an {@link Tarvik.StatusError | Error} with a status as its `number`: 0x80004001
 *   for a wrong number of arguments, 0x80070057 for an argument of the wrong type. A member whose operation fails
 *   returns `false` or `null`. Each member's description states the exceptions.
 * - Reading a method without calling it, or reading a write-only property, throws 0x80004001 on the system's control
 *   and returns a function on the page control. Some methods do not distinguish a read from a call without arguments:
 *   `loadPlugin`, `createWindow`, `addData` of a digest, and those of `console`, `dragfile` and `ga`. On the system's
 *   control, reading them returns `undefined`, or throws what such a call throws.
 * - Calling a property throws 0x80004001 on the system's control, and usually a `TypeError` on the page control.
 * - Options of the wrong type count as absent. Only `true` and `false` count as booleans.
 * - A "whole number" fits into 32 bits with a sign. Where a member requires one, it refuses other numbers.
 *
 * @packageDocumentation
 */

/**
 * `window.external`; {@link Tarvik.Host} documents its members. Two members that the browser's library declares do not
 * exist.
 *
 * @hidden
 */
interface External extends Tarvik.Host {}

/**
 * Returns the plug-in of a name: `window.external[pluginName]`.
 *
 * @returns `undefined` if no plug-in has the name.
 *
 * @example
 * queryModule('mouse').LBTN;  //= 0
 * queryModule('noSuchPlugin');  //= undefined
 */
declare function queryModule<Name extends keyof Tarvik.Host>(pluginName: Name): Tarvik.Host[Name];

/**
 * Loads a plug-in library: {@link Tarvik.Host.loadPlugin | window.external.loadPlugin}.
 *
 * @example
 * loadPlugin('no such library.dll');  //= false
 */
declare function loadPlugin(path: string): boolean;

/**
 * Opens a further window: {@link Tarvik.Host.createWindow | window.external.createWindow}.
 *
 * @example
 * createWindow({ url: 'no such page.html' });  //= null
 */
declare function createWindow(options: Tarvik.CreateWindowOptions): Tarvik.Window | null;

/**
 * The option `callback` of the {@link Tarvik.Host.createWindow | createWindow} call that opened the page's window. The
 * host never calls it; the page does, whenever the two pages have agreed on.
 *
 * Only the first page of such a window has this global; it is `undefined` if the option was not given. The program's
 * first window does not have it.
 */
declare var windowCallback: any;

/**
 * The option `context` of the {@link Tarvik.Host.createWindow | createWindow} call that opened the page's window. The
 * rest is as with {@link windowCallback}.
 */
declare var windowContext: any;

/**
 * Shows a message box of the plug-in `window`, in place of the engine's own `alert`. The page waits until the user
 * closes it.
 *
 * @param content - The message; other types are converted with `String`.
 * @param icon - Like the option {@link Tarvik.MessageBoxOptions.icon | icon} of `messageBox`; default: `'information'`.
 * @param title - The title; default: the title of the window.
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
 * Ends the script: calls `abort` of the plug-in `system`, which throws an `Error`.
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
 * The global `console` has the members of the plug-in `console`. On the page control it keeps the browser's other methods
 * (`info`, `warn`, `table` and so on); on the system's control it has no others.
 */
interface Console extends Tarvik.Console {}

declare namespace Tarvik {
  /**
   * The native powers of a page. A plug-in is read by its name, which is case-sensitive.
   *
   * A *retained* plug-in has one object for each window, which keeps its state when the page navigates. A *transient*
   * plug-in returns a new object at each read. These are objects of the host, which may be callable; `typeof` may
   * return `'function'` for them.
   *
   * @example
   * external.menu === external.menu;  //= true
   * external.stream === external.stream;  //= false
   * external.noSuchPlugin;  //= undefined
   */
  interface Host {
    /** The window that shows the page, its dialogs and its events; *retained*. */
    readonly window: Window;
    /** Popup menus and menu bars; *retained*. */
    readonly menu: Menus;
    /** The window's icon in the notification area of the task bar; *retained*. */
    readonly tray: Tray;
    /** Keys that call a function whichever program has the focus; *retained*. */
    readonly hotkey: Hotkey;
    /** The mouse pointer and its buttons; *retained*. */
    readonly mouse: Mouse;
    /** Files that the user drops on elements of the page; *retained*. */
    readonly dragfile: DragFile;
    /** Digests of texts; *retained*. */
    readonly hash: Hash;
    /** The author's log; *retained*. */
    readonly console: Console;
    /** Properties of files and folders; deleting, copying, moving and listing; *retained*. */
    readonly file: File;
    /**
     * One open file, whose bytes are read to streams and written from them; *transient*: each read returns a new
     * object.
     */
    readonly fileIO: FileIO;
    /** A block of bytes with a position; *transient*: each read returns a new, empty one. */
    readonly stream: Stream;
    /** ZIP archives; *transient*: each read returns a new object. */
    readonly minizip: MiniZip;
    /** Command line, environment, programs, shortcuts and the power state; *retained*. */
    readonly system: System;
    /** The Windows registry; *transient*: each read returns a new object. */
    readonly registry: Registry;
    /** An application's settings; *transient*: each read returns a new object. */
    readonly config: Config;
    /** Downloads and requests; *transient*: each read returns a new object. */
    readonly http: Http;
    /** Reports to a measurement service which screens are used; *retained*. */
    readonly ga: Analytics;

    /**
     * Loads a plug-in library. Its plug-in is then read like a built-in one: `window.external.name`.
     *
     * @param path - The library's file; a relative path is relative to the program's current folder.
     * @returns `false` if the file is not an executable image for this system, or is one for 32-bit x86. The result is
     *   `true` also for a library that is not a plug-in.
     * @throws 0x80070057 without a path.
     *
     * @example
     * window.external.loadPlugin('notes.txt');  //= false
     */
    loadPlugin(path: string): boolean;

    /**
     * Opens a further window of the program. It is hidden until its page, or this page, shows it.
     *
     * @returns The new window's plug-in `window`, or `null` if there is no such page. A relative `url` on a page from a
     *   web server opens no window.
     * @throws 0x80070057 without options.
     *
     * @example
     * var other = createWindow({ url: 'second.html', inherit: true, context: 7 });
     * other.isVisible();  //= false
     * other.close();
     */
    createWindow(options: CreateWindowOptions): Window | null;

    /** The plug-ins of libraries, by their names; `undefined` if no plug-in has the name. */
    [pluginName: string]: any;
  }

  /** The error that members throw. */
  interface StatusError extends Error {
    /** The status, a negative number: -2147467263 is 0x80004001. */
    number: number;
  }

  /**
   * An array that a member returns. It can be read, written and enumerated. It is an object of the host, so
   * `Array.isArray` and the methods of JavaScript's own arrays do not work on it, except `push`.
   */
  interface List<Item> {
    length: number;
    [index: number]: Item;
    /** Appends one item. */
    push(item: Item): void;
  }

  /**
   * The options of {@link Tarvik.Host.createWindow | createWindow}.
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
     * The page; a relative address is relative to the calling page. A file's address may have a hash, but no query:
     * `second.html?bed=north` names no file. Default: the page of the program's first window.
     */
    url?: string;
    /** The new window belongs to this one: it stays above it and closes with it. */
    inherit?: boolean;
    /** The new page's global {@link windowCallback}. */
    callback?: any;
    /** The new page's global {@link windowContext}. */
    context?: any;
  }

  /**
   * The plug-in `window`: the window that shows the page.
   *
   * It is hidden until the page shows it. Closing it does not end a program whose page is alive, even if it is the
   * last window: the page calls {@link quit}, for example in {@link onClosed}. Settings, functions included, survive
   * navigation; then a call of a previous page's function fails and is ignored.
   *
   * Positions and sizes are in pixels of the screen, which are CSS pixels times `devicePixelRatio`; sizes include the
   * frame. The system converts numbers: fractions are rounded, `'12'` counts as 12 and `true` as -1. A value that cannot
   * be converted counts as 0.
   *
   * An event's function can be replaced but not removed: `null` throws 0x80070057.
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
     * Shows the window and brings it to the front, or hides it. A minimized or maximized window is restored.
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
     * Closes the window without calling {@link onClose}.
     *
     * @returns `true`.
     *
     * @example
     * var other = createWindow({ url: 'second.html' });
     * other.close();  //= true
     */
    close(): boolean;

    /**
     * Ends the program. Its windows are not closed first, so {@link onClosed} is not called. An icon of `tray` stays
     * visible until the pointer moves over it, unless the page hides it first.
     *
     * @param code - The program's exit code, a whole number; default: 0.
     * @throws 0x80070057 if the code is not a whole number.
     *
     * @example
     * document.onkeydown = function (event) {
     *   if (event.ctrlKey && event.keyCode === 81) external.window.quit(0);  // Ctrl+Q
     * };
     */
    quit(code?: number): void;

    /**
     * Minimizes the window without calling {@link onMinimize}. A minimized window still counts as visible.
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
     * Shows a progress bar on the window's button in the task bar, if the system supports it.
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
     * Sets the look of the progress bar in the task bar.
     *
     * @param state - `'none'`: no bar; `'cycle'`: work of unknown length; `'normal'`; `'error'`: red; `'pause'`:
     *   yellow. Not case-sensitive.
     * @returns Whether it was applied: `false` for any other word, and if the system does not support progress bars.
     */
    setTaskbarProgressState(state: 'none' | 'cycle' | 'normal' | 'error' | 'pause'): boolean;

    /** Returns whether the system supports progress bars in the task bar. */
    isSupportTaskbarProgress(): boolean;

    /**
     * Opens a dialog in which the user chooses a file.
     *
     * The dialog belongs to the window and disables it until the user closes the dialog. The call returns only then.
     * Other windows keep working, and so do calls into the page.
     *
     * @returns The file's full path; `null` if the user chose none.
     * @throws 0x80070057 if the options are not an object.
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
     * With the option `multi`, the user can choose several files.
     *
     * @returns The full paths, in a JavaScript `Array` even for one file; `null` if the user chose none. The array ends
     *   before the first path of 260 characters or more. Paths of files in the root of a drive have two backslashes, as
     *   in `C:\\a.txt`.
     *
     * @example
     * var paths = external.window.selectFile({ title: 'Plans to open', initDir: '.', multi: true });
     * for (var i = 0; paths && i < paths.length; i++) console.log(paths[i]);
     * paths;  //= null
     */
    selectFile(options: SelectFileOptions): string[] | null;

    /**
     * Opens a dialog in which the user chooses a folder. The call waits as with {@link selectFile}.
     *
     * @returns The folder's path; `null` if the user chose none.
     * @throws 0x80070057 if the options are not an object.
     *
     * @example
     * var folder = external.window.selectFolder({ title: 'Where are the plans?', newFolderButton: true });
     * folder;  //= null
     */
    selectFolder(options?: SelectFolderOptions): string | null;

    /**
     * Claims a name for the window, and returns whether no other window holds it. An application that should run only
     * once claims its name at the start.
     *
     * Every window that claims a name holds it until it closes or claims another one, even if the result was `false`. A
     * closed window still holds its name while script references its object. So the name stays taken as long as any
     * window holds it, and a window that claims its own name again gets `false` if another window has claimed it
     * meanwhile. All programs on the desktop share the names.
     *
     * @returns `false` if another window holds the name, and for an empty name. For a name that the system refuses,
     *   such as one with a backslash, every window gets `true`.
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
     * Shows the window that holds the name which this window failed to claim, even if it is hidden or minimized.
     *
     * This also finds a window that has claimed another name since. If there are several windows, it shows the topmost
     * one.
     *
     * @returns Whether a window was shown; `false` unless the last {@link isUniqueWindow} of this window returned
     *   `false`.
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
     * Shows a message box, waits until the user closes it, and calls the function of the chosen button.
     *
     * The box belongs to the window and disables it meanwhile. Other windows keep working, and so do calls into the
     * page.
     *
     * @returns Whether the box was shown, whichever button was chosen.
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

    /** Returns whether the window is shown; `true` for a minimized window. */
    isVisible(): boolean;

    /** Returns whether the window is the foreground window. */
    isForeWindow(): boolean;

    /**
     * Sets the position and the size together.
     *
     * @returns Whether it succeeded.
     * @throws 0x80070057 if the width or the height is 0; the window then does not change.
     *
     * @example
     * var win = window.external.window;
     * win.setWindowPos(0, 0, win.workAreaWidth / 2, win.workAreaHeight);  //= true
     * win.left;  //= 0
     */
    setWindowPos(x: number, y: number, width: number, height: number): boolean;

    /**
     * The width of the window. Writing 0 throws 0x80070057. A shaped window keeps its size.
     *
     * @example
     * var win = window.external.window;
     * win.width = 500;
     * win.height = 400;
     * win.width + ' x ' + win.height;  //= '500 x 400'
     */
    width: number;
    /** The height of the window. Writing 0 throws 0x80070057. A shaped window keeps its size. */
    height: number;
    /**
     * The position of the window's left edge on the screen.
     *
     * @example
     * var win = window.external.window;
     * win.left = 20;
     * win.top = 10;
     * win.left + ', ' + win.top;  //= '20, 10'
     */
    left: number;
    /** The position of the window's upper edge on the screen. */
    top: number;
    /** The width of the primary screen without the task bar. */
    readonly workAreaWidth: number;
    /** The height of the primary screen without the task bar. */
    readonly workAreaHeight: number;
    /** The title of the window. Reading it returns at most 999 characters. */
    title: string;

    /**
     * Whether the caption has a minimize button. A change becomes visible when the frame is next drawn.
     *
     * @example
     * var win = window.external.window;
     * win.minimizeBox = false;
     * win.maximizeBox = false;
     * win.sysMenu = true;
     */
    set minimizeBox(value: boolean);
    /** Whether the caption has a maximize button. A change becomes visible when the frame is next drawn. */
    set maximizeBox(value: boolean);
    /**
     * Whether the caption has the window menu and its buttons. A change becomes visible when the frame is next drawn.
     */
    set sysMenu(value: boolean);

    /**
     * Whether the window has a frame. Without a frame, the page fills the window.
     *
     * Then, unless {@link resize} is `false`, the user sizes the window by the outermost pixels of the page: 7 at the
     * left and the top, 6 at the right and the bottom. The user moves the window by dragging elements with the
     * attribute `dragWindow`: the nearest element with `true` or `false` decides. Fields and buttons (`input`,
     * `textarea`, `button`) never drag the window. A shaped window cannot get its frame back.
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
     * Whether the window stays above all others.
     *
     * @example
     * external.window.topMost = true;
     * external.window.topMost = false;
     */
    set topMost(value: boolean);

    /**
     * The smallest width to which the user or script can size the window. -1 removes the limit; 0 throws 0x80070057.
     * The window keeps its size until it is next sized.
     *
     * @example
     * var win = window.external.window;
     * win.minWidth = 320;
     * win.minHeight = 240;
     * win.maxWidth = win.workAreaWidth;
     * win.maxHeight = -1;  // none
     */
    set minWidth(value: number);
    /** The smallest height, as {@link minWidth}. */
    set minHeight(value: number);
    /** The largest width, as {@link minWidth}. */
    set maxWidth(value: number);
    /** The largest height, as {@link minWidth}. */
    set maxHeight(value: number);

    /**
     * Whether the user can size the window: by its frame, or, if it has none, by the outermost pixels of the page (see
     * {@link caption}). It has no effect on a shaped window.
     */
    set resize(value: boolean);

    /**
     * Gives the window the size of a bitmap file, and the shape of all its pixels that are not exactly white (255, 255,
     * 255). The path is a `file:` URL, a full path, or relative to the page of this window.
     *
     * It cannot be undone: from then on {@link caption}, {@link resize}, {@link width} and {@link height} have no
     * effect. Another bitmap replaces the shape. A file that is not a bitmap has no effect, and no error is reported.
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
     * The menu bar of the window; `null` if it has none. Writing an object that is not a menu has no effect.
     *
     * It stays when the page navigates; then calls of the previous page's functions fail.
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

    /** Messages between windows; the same object at each read. */
    readonly msg: Messages;

    /**
     * Called when the window is being destroyed, while the page is still alive. It cannot refuse. On the page control
     * it is not called if the page of the function has crashed, or does not respond for ten seconds.
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
     * Called when the user closes the window with its close button, its menu or Alt+F4. Only the result `false`
     * refuses; an error does not, and neither does a page that has crashed or does not respond.
     *
     * @example
     * var isDirty = false, win = window.external.window;
     * win.onClose = function () { return !isDirty; };
     * win.onMinimize = function () { console.log('out of sight'); };
     * win.onMaximize = function () { return win.workAreaWidth > 800; };
     * win.onRestore = function () { console.log('back again'); };
     */
    set onClose(value: () => boolean | void);
    /** Called when the user minimizes the window. Only the result `false` refuses. */
    set onMinimize(value: () => boolean | void);
    /**
     * Called when the user maximizes the window, except by a double click on the caption. Only the result `false`
     * refuses.
     */
    set onMaximize(value: () => boolean | void);
    /**
     * Called when the user restores a minimized or maximized window, except by a double click on the caption. Only the
     * result `false` refuses.
     */
    set onRestore(value: () => boolean | void);

    /**
     * Called when the window is activated.
     *
     * @example
     * var win = window.external.window;
     * win.onActivate = function () { document.body.className = 'awake'; };
     * win.onInactivate = function () { document.body.className = ''; };
     * win.onShutdown = function () { console.log('good night'); };
     */
    set onActivate(value: () => void);
    /** Called when the window is deactivated. */
    set onInactivate(value: () => void);
    /** Called when the system shuts down or the session ends. It cannot refuse. */
    set onShutdown(value: () => void);
  }

  /** The icons of a message box. */
  type MessageBoxIcon = 'information' | 'error' | 'warning' | 'question';

  /** The options of {@link Window.messageBox}. */
  interface MessageBoxOptions {
    /** The title; default: empty. */
    caption?: string;
    /** The message; default: empty. */
    text?: string;
    /**
     * The buttons; any other value counts as `'ok'`. Not case-sensitive. In an `ok` box, the key Escape presses its
     * only button.
     */
    type?: 'ok' | 'okCancel' | 'yesNo';
    /** The icon; default: `'question'` for `yesNo`, else `'information'`. Not case-sensitive. */
    icon?: MessageBoxIcon;
    /**
     * Called for the button OK, after the box has closed and before `messageBox` returns. The same applies to the other
     * functions.
     */
    onOk?(): void;
    /**
     * Called for the button Cancel, for Escape, and for the close button of the caption. Not called for an `ok` box.
     */
    onCancel?(): void;
    /** Called for the button Yes. */
    onYes?(): void;
    /** Called for the button No. */
    onNo?(): void;
  }

  /** The options of {@link Window.selectFile}. Only `true` enables a boolean option; `1` does not. */
  interface SelectFileOptions {
    /** The dialog's title; default: the system's. */
    title?: string;
    /**
     * Pairs of a description and a pattern, each ended by a zero character: `'Text files\0*.txt\0All files\0*.*\0'`.
     */
    filter?: string;
    /** The initial folder; a relative path is relative to the page, and a URL is used as it is. */
    initDir?: string;
    /** The user can choose several files. */
    multi?: boolean;
    /**
     * The user can choose only files that exist. (Their folder must always exist.) It has no effect with
     * `overwritePrompt`, unless `multi` is given.
     */
    fileMustExist?: boolean;
    /** The dialog asks for confirmation if the file exists. Has no effect with `multi`. */
    overwritePrompt?: boolean;
    /** Opens the dialog for saving. Has no effect with `multi`. */
    saveMode?: boolean;
  }

  /** The options of {@link Window.selectFolder}. */
  interface SelectFolderOptions {
    /** The text above the folders. */
    title?: string;
    /** The folder that is initially selected; a relative path is relative to the page, and a URL is used as it is. */
    initDir?: string;
    /** The user can create a folder in the dialog. */
    newFolderButton?: boolean;
  }

  /**
   * `window.external.window.msg`: messages between windows, of one program or of several on the same desktop.
   *
   * A message has a name and a text, and is addressed to an identifier. Every window that receives for that identifier
   * receives it. Any program on the desktop can send messages, so treat them as untrusted input.
   *
   * Registered functions stay when the page navigates. Then calls of the previous page's functions fail, and their
   * names stay taken. So a page should unregister its functions before it leaves. After its window has been destroyed,
   * each use of the object may throw 0x80004005.
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
     * Registers a function for messages with a name.
     *
     * @param callback - Called with the payload, `''` if there is none, and the context. Its result is discarded. To
     *   reply, it can send a message itself, also to the sender.
     * @param context - Passed to the function.
     * @returns `false` if the name already has a function, which stays registered.
     * @throws 0x80004001 without a function, 0x80070057 if the function is `null` or not an object, or if the name is
     *   not a string.
     *
     * @example
     * var msg = external.window.msg;
     * msg.registerMsg('water', function (text) { console.log(text); });  //= true
     * msg.registerMsg('water', function () {});  //= false
     * msg.unregisterMsg('water');
     */
    registerMsg(name: string, callback: (payload: string, context: any) => void, context?: any): boolean;

    /**
     * Removes the function for a name.
     *
     * @returns `true`, also for an unknown name.
     */
    unregisterMsg(name: string): boolean;

    /**
     * Sends a message to all windows with an identifier, this one included. It returns when every receiving function
     * has returned; there is no timeout.
     *
     * It does not report whether a window had a function for the message, or whether the function succeeded.
     *
     * @param identifier - Cut at its first zero character, like the name.
     * @param payload - A string, which may contain zero characters. Any other type counts as no payload, so send
     *   numbers as `String(5)` and objects as `JSON.stringify(object)`.
     * @returns Whether a window with the identifier exists.
     *
     * @example
     * external.window.msg.sendMsg('no such viewer', 'open', 'notes.txt');  //= false
     */
    sendMsg(identifier: string | number, name: string | number, payload?: string): boolean;

    /**
     * The identifier for which this window receives messages; `''` at first. After a change, the window keeps receiving
     * for its earlier identifiers.
     *
     * An identifier that the system refuses, such as one of more than 255 characters, changes nothing.
     *
     * @example
     * external.window.msg.uniqueID = 'bed 7';
     * external.window.msg.uniqueID;  //= 'bed 7'
     */
    uniqueID: string;
  }

  /**
   * The plug-in `menu`: creates menus.
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
     * Creates an empty menu.
     *
     * @param type - `'popupMenu'` (the default); `'trayMenu'` for the icon of `tray`; `'windowMenu'` for a menu bar.
     *   Not case-sensitive.
     * @throws 0x80004001 for any other type.
     *
     * @example
     * external.menu.createMenu('windowMenu').getItemCount();  //= 0
     */
    createMenu(type?: 'popupMenu' | 'trayMenu' | 'windowMenu'): Menu;
  }

  /**
   * A menu. Items cannot be removed; create a new menu instead.
   *
   * Members find an item by the name that {@link appendMenu} received, `&` included. Names are not case-sensitive; of
   * several items with one name, the first is used.
   */
  interface Menu {
    /**
     * Appends an item. Returns `false` for success and `true` for failure.
     *
     * It fails without a name, unless the item is a separator, and if `subMenu` is not a menu or contains this one.
     * Each call in the program uses up a number, even if it fails, and a menu bar can use only the first 1001 of them.
     * So a program that creates menus repeatedly should build its menu bar first.
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
     * Opens the menu at the pointer. It returns when the menu has closed and the function of the chosen item has
     * returned. The page waits until then; other windows keep working.
     *
     * @returns `false` for a menu bar and for a menu without items, which do not open; otherwise `true`, even if
     *   nothing was chosen. Only one menu is open at a time: meanwhile, another `popup` opens nothing.
     *
     * @example
     * external.menu.createMenu().popup();  //= false
     */
    popup(): boolean;
    /**
     * Opens the menu at a position in the page, in pixels of the screen: CSS pixels times `devicePixelRatio`.
     *
     * @throws 0x80070057 if the position is not in whole numbers.
     *
     * @example
     * var menu = external.menu.createMenu();
     * menu.appendMenu({ name: '&Water', callback: function () { console.log('watered'); } });
     * menu.popup(40, 30);  //= true
     */
    popup(x: number, y: number): boolean;

    /**
     * Returns the submenu of an item.
     *
     * @returns `undefined` if no item with that name has a submenu.
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
     * Enables an item, or grays it. An enabled item without a function does nothing when it is chosen.
     *
     * @returns Whether there is an item with that name.
     *
     * @example
     * var menu = external.menu.createMenu();
     * menu.appendMenu({ name: '&Harvest', callback: function () {} });
     * menu.enable('&Harvest', false);  //= true
     * menu.enable('Harvest', false);  //= false
     */
    enable(name: string, on: boolean): boolean;

    /** Returns the number of items, separators included. */
    getItemCount(): number;
  }

  /** The options of {@link Menu.appendMenu}. */
  interface MenuItemOptions {
    /** The text. `&` precedes the letter that chooses the item; the text after a `\t` is aligned to the right. */
    name?: string;
    /** The item is initially gray and cannot be chosen. */
    gray?: boolean;
    /** The item is a separator line, which needs no name. */
    separator?: boolean;
    /** The item opens this menu, and has no function. A menu may be a submenu of several others, but not of itself. */
    subMenu?: Menu;
    /**
     * Called when the item is chosen; without a `context`, it receives no argument. An item without a function is gray.
     */
    callback?(context?: any): void;
    /** Passed to the function. */
    context?: any;
  }

  /**
   * The plug-in `tray`: one icon for each window, in the notification area of the task bar.
   *
   * The icon is removed when its window is destroyed, but not when the window is hidden or navigates. {@link
   * Window.quit | quit} ends the program without closing its windows: call `hide` first, or the icon stays visible
   * until the pointer moves over it.
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
     * Shows the icon. An icon that is already shown does not change; to change its image or tooltip, call {@link hide}
     * first.
     *
     * @param tip - The tooltip, cut at 127 characters.
     * @param icon - The path of an `.ico` file, which is relative to the page and may be a `file:` URL; default: the
     *   program's icon.
     * @throws The system's error if the icon cannot be loaded: 0x80070002 if the file does not exist.
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
     * Shows the icon again. Before {@link addTray}, it has neither image nor tooltip.
     *
     * @example
     * external.tray.addTray('Garden planner');
     * external.tray.hide();
     * external.tray.show();
     * external.tray.hide();
     */
    show(): void;
    /** Removes the icon. */
    hide(): void;

    /** Called for a click on the icon, including both clicks of a double click. */
    set onClick(value: () => void);
    /** Called for a double click on the icon. */
    set onDbClick(value: () => void);
    /** Called for a right click on the icon. */
    set onRClick(value: () => void);
  }

  /** The plug-in `console`: the author's log. */
  interface Console {
    /**
     * Writes a line to the debugger's channel, which `tarvik-log` prints.
     *
     * @param text - Only the first argument is written, and only if it is a string. The line ends at its first zero
     *   character.
     * @throws 0x80004005 without an argument.
     *
     * @example
     * var rows = 3;
     * console.log('rows: ' + rows);
     */
    log(text: string): void;

    /**
     * Whether script errors open a dialog, in which the user can stop the page's scripts. Only `false` hides the
     * dialog, and scripts then continue; any other value, and the initial `undefined`, shows it.
     *
     * @example
     * external.console.showJsError = false;
     * external.console.showJsError;  //= false
     * external.console.showJsError = true;
     */
    showJsError: boolean;
  }

  /**
   * The plug-in `hotkey`: keys that call a function whichever program has the focus, even while the window is hidden.
   *
   * No other program receives the keys, so a combination without `ctrl`, `alt` or `win` takes a key away from all
   * programs. A combination stays set until it is cleared or the window is destroyed. It survives navigation; then the
   * previous page's function has no effect, but the combination stays taken. So a page should clear its combinations
   * before it leaves, or before it sets them again.
   *
   * @example
   * var hotkey = external.hotkey;
   * hotkey.clear('ctrl+alt+f5');
   * hotkey.set('ctrl+alt+f5', function (win) { win.show(true); }, external.window);  //= true
   * hotkey.clear('ctrl+alt+f5');  //= true
   */
  interface Hotkey {
    /**
     * Calls a function whenever the keys are pressed. While a key is held down, it calls repeatedly.
     *
     * @param keys - Any of `ctrl`, `shift`, `alt` and `win`, each followed by a `+`, and one key: a character, which
     *   stands for the key that types it, or `esc`, `pause`, `print`, `scroll`, `insert`, `delete`, `pageup`,
     *   `pagedown`, `home`, `end`, `up`, `down`, `left`, `right`, `tab`, `back`, `return`, `f1` to `f12`. Not
     *   case-sensitive. `+` cannot be the key. A character does not imply Shift (`:` and `;` are the same key). `pause`
     *   is the key Break, which keyboards send for Ctrl+Pause only: set it as `ctrl+pause`.
     * @param context - Passed to the function.
     * @returns `false` if the text is not a combination, if this window has set it already, or if the system refuses
     *   it, for example because another program has set it.
     * @throws 0x80004001 without a function, 0x80070057 if the function is `null` or not an object, or if the keys are
     *   not a string.
     *
     * @example
     * external.hotkey.set('ctrl+no such key', function () {});  //= false
     */
    set(keys: string, callback: (context: any) => void, context?: any): boolean;

    /**
     * Clears a combination that {@link set} has set.
     *
     * @returns Whether this window had set the combination.
     *
     * @example
     * external.hotkey.clear('ctrl+shift+alt+pagedown');  //= false
     */
    clear(keys: string): boolean;
  }

  /**
   * The plug-in `mouse`: the mouse pointer and its buttons.
   *
   * A button is a whole number: {@link LBTN}, {@link RBTN} or {@link MBTN}. The default, and any other number, is the
   * left button.
   *
   * @example
   * var mouse = window.external.mouse;
   * mouse.LBTN + ', ' + mouse.RBTN + ', ' + mouse.MBTN;  //= '0, 1, 2'
   */
  interface Mouse {
    /**
     * Returns whether a button was down when the program took its last message from its queue. So a script that waits
     * in a loop may never see a change. When a page learns of a short press, the button may already be up again.
     *
     * @throws 0x80070057 if the button is not a whole number.
     *
     * @example
     * external.mouse.isBtnDown();  //= false
     * external.mouse.isBtnDown(external.mouse.RBTN);  //= false
     */
    isBtnDown(button?: number): boolean;

    /**
     * Presses a button at the pointer and releases it after 50 milliseconds. The page waits meanwhile.
     *
     * @returns Whether it succeeded.
     * @throws 0x80070057 if the button is not a whole number.
     *
     * @example
     * external.mouse.click(external.mouse.MBTN);  //= true
     */
    click(button?: number): boolean;
    /**
     * The same: `x` and `y` have no effect, and the click is at the pointer. To click elsewhere, set {@link Mouse.x}
     * and {@link Mouse.y} first.
     */
    click(button: number, x: number, y: number): boolean;

    /**
     * The position of the pointer, in pixels from the left edge of the screen. Setting it keeps {@link Mouse.y}.
     *
     * @example
     * window.external.mouse.x = 200;
     */
    x: number;
    /**
     * The position of the pointer, in pixels from the upper edge of the screen. Setting it keeps {@link Mouse.x}.
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
   * The plug-in `dragfile`: lets the user drop files from other programs on elements of the page.
   *
   * An id stays bound when the page navigates, and then refers to the element of the new page; the previous page's
   * function has no effect any more. So a page should unbind its ids before it leaves.
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
     * Lets the user drop files on the element with an id, and on the elements inside it. It replaces an earlier binding
     * of the id.
     *
     * The nearest bound element receives the files. If no element around the pointer is bound, the files cannot be
     * dropped there. Ids are case-sensitive.
     *
     * @param callback - Called with the full paths of files and folders, and the context. Paths are cut to fewer than
     *   260 characters. An object that is not a function binds, too: then files can be dropped, but nothing is called.
     *   Any other value, such as `null`, unbinds the element.
     * @param context - Passed to the function.
     * @throws 0x80070057 if the id is not a string, and with fewer than two arguments.
     */
    bind(id: string, callback: ((paths: List<string>, context: any) => void) | null, context?: any): void;

    /**
     * Returns the binding of an id.
     *
     * @returns `undefined` if the id is not bound.
     * @throws 0x80070057 if the id is not a string.
     *
     * @example
     * external.dragfile.get('no such id');  //= undefined
     */
    get(id: string): DropBinding | undefined;
  }

  /** The function and the context of {@link DragFile.bind}. */
  interface DropBinding {
    /** The function. */
    callback: (paths: List<string>, context: any) => void;
    /** The value that is passed to it. */
    context: any;
  }

  /**
   * The plug-in `hash`: digests of texts. None of the three algorithms is secure any more; use them to compare and to
   * identify data.
   *
   * @example
   * var hash = window.external.hash;
   * hash.md5().addData('a').finish();  //= '0CC175B9C0F1B6A831C399E269772661'
   */
  interface Hash {
    /**
     * Creates an SHA-1 digest.
     *
     * @example
     * external.hash.sha1().addData('ab').addData('c').finish();  //= external.hash.sha1().addData('abc').finish()
     */
    sha1(): Digest;

    /**
     * Creates an MD5 digest.
     *
     * @example
     * external.hash.md5().finish();  //= 'D41D8CD98F00B204E9800998ECF8427E'
     */
    md5(): Digest;

    /**
     * Creates an MD4 digest.
     *
     * @example
     * external.hash.md4().addData('a').finish();  //= 'BDE52CB31DE33E46245E05FBDBD6FB24'
     */
    md4(): Digest;
  }

  /** A digest that is being computed. */
  interface Digest {
    /**
     * Adds a text, in UTF-8.
     *
     * It makes no difference how a text is split between calls. With no argument, or more than one, the call has no
     * effect.
     *
     * @returns The object itself, so calls can be chained.
     * @throws 0x80004005 if the argument is not a string.
     */
    addData(text: string): Digest;
    /**
     * Returns the digest in upper-case hexadecimal digits. It is final: data that is added later has no effect.
     *
     * @throws The system's status if the digest cannot be computed, for example because the algorithm is disabled.
     */
    finish(): string;
  }

  /**
   * The plug-in `file`: properties of files and folders; deleting, copying, moving and listing.
   *
   * Paths are relative to the page and may be `file:` URLs, except the `path` of {@link File.enumFiles}, which is
   * relative to the current folder. {@link File.copyAsync}, {@link File.moveAsync} and {@link File.enumFiles} return
   * immediately and work on other threads; the page waits for all other members.
   */
  interface File {
    /**
     * Returns whether a file or folder exists.
     *
     * @example
     * external.file.isFileExist('notes.txt');  //= true
     * external.file.isFileExist('no such file');  //= false
     */
    isFileExist(path: string): boolean;

    /**
     * Returns whether the path is an existing folder.
     *
     * @example
     * external.file.isDir('notes.txt');  //= false
     * external.file.isDir(external.system.expandEnvirPath('%TEMP%'));  //= true
     */
    isDir(path: string): boolean;

    /**
     * Returns `true` only for the full path of a folder that ends in `\.`, whatever the folder contains.
     *
     * Any other path returns `false`, even for an empty folder. To find out what a folder contains, use {@link
     * File.enumFiles}.
     *
     * @example
     * external.file.mkDir('empty');
     * external.file.isDirEmpty('empty');  //= false
     * external.file.isDirEmpty(external.system.expandEnvirPath('%TEMP%\\.'));  //= true
     * external.file.deleteFile('empty');
     */
    isDirEmpty(path: string): boolean;

    /**
     * Returns the size of a file in bytes. It is a 64-bit integer, which the old engine can pass on but cannot
     * calculate with.
     *
     * @returns `undefined` for a folder, and if the file cannot be opened for reading.
     *
     * @example
     * external.file.getSize('notes.txt');  //= 13
     * external.file.getSize('no such file');  //= undefined
     */
    getSize(path: string): number | undefined;

    /**
     * Creates a folder, but not its parent folders. Returns `false` if the folder exists already.
     *
     * @example
     * external.file.mkDir('beds');  //= true
     * external.file.mkDir('beds');  //= false
     * external.file.deleteFile('beds');
     */
    mkDir(path: string): boolean;

    /**
     * Deletes a file, or a folder with its contents.
     *
     * Contents that cannot be deleted stay. A link to a folder is deleted, but not its target.
     *
     * @param delayed - `true`: the system deletes it at its next start.
     * @returns `true` also if it does not exist.
     *
     * @example
     * external.file.copy('notes.txt', 'old.txt');
     * external.file.deleteFile('old.txt');  //= true
     * external.file.isFileExist('old.txt');  //= false
     * function deleteLater(path) { return external.file.deleteFile(path, true); }
     */
    deleteFile(path: string, delayed?: boolean): boolean;

    /**
     * Copies with the system's shell, without prompting the user.
     *
     * If `dest` is a folder, it copies into that folder. It replaces existing files and accepts names with `*`. Paths
     * must have fewer than 260 characters.
     *
     * @example
     * external.file.copy('notes.txt', 'copy.txt');  //= true
     * external.file.getSize('copy.txt') === external.file.getSize('notes.txt');  //= true
     * external.file.deleteFile('copy.txt');
     */
    copy(src: string, dest: string): boolean;

    /**
     * Copies a file, or a folder with its contents, on another thread.
     *
     * The parent folder of `destPath` must exist. The contents of a link's target folder are copied, too. Files that
     * were copied stay, even if the operation fails or is cancelled.
     *
     * @returns Whether the operation has started. If not, `fail` has been called.
     *
     * @example
     * external.file.copyAsync({
     *   srcPath: 'notes.txt', destPath: 'copy.txt', replaceExisting: true, context: 'It is there.',
     *   progress: function (done, total) { document.title = Math.round(100 * done / total) + ' %'; },
     *   success: function (context) {
     *     external.file.deleteFile('copy.txt');  //= true
     *   },
     *   fail: function (code) { alert('It failed: ' + code); }
     * });
     *
     * @example
     * external.file.copyAsync({
     *   srcPath: 'no such file', destPath: 'copy.txt',
     *   fail: function (code, context) {
     *     code;  //= -2147024894
     *   }
     * });
     */
    copyAsync(options: FileTransferOptions): boolean;

    /**
     * Moves or renames with the system's shell; otherwise like {@link File.copy}.
     *
     * @example
     * external.file.copy('notes.txt', 'before.txt');
     * external.file.move('before.txt', 'after.txt');  //= true
     * external.file.isFileExist('before.txt');  //= false
     * external.file.deleteFile('after.txt');
     */
    move(src: string, dest: string): boolean;

    /**
     * Moves a file, or a folder with its contents, on another thread.
     *
     * A move within a drive is a single step: it reports no progress, and with `replaceExisting` it replaces a file,
     * but never a folder. A move between drives creates the parent folder of `destPath`. If the tree contains a link to
     * a folder, it fails before anything is moved. Files that were moved stay moved, even if the operation fails or is
     * cancelled.
     *
     * @returns Whether the operation has started. If not, `fail` has been called.
     *
     * @example
     * external.file.copy('notes.txt', 'before.txt');
     * external.file.moveAsync({
     *   srcPath: 'before.txt', destPath: 'after.txt', replaceExisting: true,
     *   success: function () {
     *     external.file.isFileExist('before.txt');  //= false
     *     external.file.deleteFile('after.txt');
     *   }
     * });
     */
    moveAsync(options: FileTransferOptions): boolean;

    /**
     * Lists a folder, on another thread. That thread reads the options, so do not change the object until the end.
     * {@link EnumFilesOptions.filter} describes the syntax of filters.
     *
     * @throws 0x80070057 without an option object.
     *
     * @example
     * var texts = [];
     * external.file.enumFiles({
     *   path: '.', recursive: false, filter: '\\.txt$',
     *   callback: function (path, attributes, size) { texts.push(path + ': ' + size); },
     *   completed: function () {
     *     texts.indexOf('.\\notes.txt: 13') >= 0;  //= true
     *   }
     * });
     *
     * @example
     * // Everything but texts.
     * var paths = [];
     * external.file.enumFiles({
     *   path: '.', recursive: false, filter: '^!(.*\\.txt!.)',
     *   callback: function (path) { paths.push(path); },
     *   completed: function () {
     *     paths.indexOf('.\\garden.zip') >= 0;  //= true
     *     paths.indexOf('.\\notes.txt') >= 0;  //= false
     *   }
     * });
     */
    enumFiles(options: EnumFilesOptions): void;
  }

  /**
   * The options of {@link File.copyAsync} and {@link File.moveAsync}.
   *
   * If `progress` cancels the operation, neither `success` nor `fail` is called.
   *
   * The `code` of `fail` is a status as a number with a sign:
   *
   * - 0x80070057: a path is missing;
   * - 0x80070002: `srcPath` does not exist;
   * - 0x80070050 from a copy, 0x800700b7 from a move: a file exists already;
   * - 0x80070020: a file is in use;
   * - 0x80070032: a move found a link;
   * - 0x80004005 from a copy, 0x80070003 from a move: a file is in the place of a folder;
   * - other 0x8007....: the low half is the system's error.
   */
  interface FileTransferOptions {
    /** The file or folder. */
    srcPath: string;
    /** Its new path: the contents of the folder `a\b`, copied to `c\d`, become `c\d\...`. */
    destPath: string;
    /** `true` replaces existing files; otherwise, an existing file makes the operation fail. */
    replaceExisting?: boolean;
    /**
     * Called with the number of bytes done and the total of all files. The result `false` or an error cancels the
     * operation, and so does leaving the page.
     */
    progress?(processed: number, total: number, context: any): boolean | void;
    /** Called when the operation has succeeded. */
    success?(context: any): void;
    /** Called when the operation has failed. */
    fail?(code: number, context: any): void;
    /** Passed to the functions. */
    context?: any;
  }

  /** The options of {@link File.enumFiles}. Both functions are required; without one, nothing happens. */
  interface EnumFilesOptions {
    /** The folder; a relative path is relative to the current folder. */
    path: string;
    /** `false` leaves out the contents of subfolders. */
    recursive?: boolean;
    /**
     * An expression that is searched for in each path, from `path` on. Only paths that match are listed: `\.txt$` lists
     * text files. It is case-sensitive. An invalid expression matches every path.
     *
     * A match may begin anywhere in the path. In a JavaScript string, write each backslash twice. The syntax differs
     * from JavaScript's:
     *
     * - `.` is any character, `[a-z_]` a character in a set, `[^a-z_]` one that is not in the set.
     * - `(...)` is a group, `{...}` a capturing group. `\0` to `\9` match the text that the first to the tenth `{...}`
     *   captured.
     * - `a|b` is either of the two. `*` repeats the element before it any number of times, `+` at least once; `?` makes
     *   it optional.
     * - `!` before a character, set or group matches where the path does not continue with it. It consumes no character
     *   itself, so `!.` is the end of the path.
     * - `^` as the first character is the start of the path, `$` as the last one its end. Elsewhere, they stand for
     *   themselves.
     * - `\a` is a letter or digit, `\b` a blank or tab, `\c` a letter, `\d` a digit, `\h` a hexadecimal digit, `
     * ` a line end, `\q` a quoted text, `\w` one or more letters, `\z` one or more digits. In a set, they stand for
     * their characters; `\q` is invalid there.
     * - A backslash before any other character makes it stand for itself. Braces in names need one, too: `\{1\}`.
     *
     * So an exclusion begins at the start of the path: `^!(.*\.tmp)` leaves out paths that contain `.tmp`, and
     * `^!(.*\.tmp!.)` paths that end with it.
     */
    filter?: string;
    /**
     * Called for each file and folder; for a folder, after its contents.
     *
     * The result `false` ends the listing; an error does not.
     *
     * @param attributes - The sum of the system's file attributes: 1 for read-only, 2 for hidden, 16 for a folder, and
     *   others.
     * @param size - The size in bytes; 0 for a folder.
     */
    callback(path: string, attributes: number, size: number): boolean | void;
    /** Called at the end in any case, even if the folder does not exist. */
    completed(): void;
  }

  /**
   * The plug-in `fileIO`: one open file. Its bytes are read to {@link Stream} objects and written from them.
   *
   * @example
   * var file = external.fileIO, bytes = external.stream;
   * file.open('notes.txt', 'r');  //= true
   * file.read(bytes, -1);  //= 13
   * bytes.seek(0, bytes.BEGIN);
   * bytes.readString();  //= 'Beans\r\nPeas\r\n'
   * file.close();
   */
  interface FileIO {
    /**
     * Closes the current file, if any, and opens another. Other programs can read and write the file meanwhile.
     *
     * @param path - The file; relative to the page, or a `file:` URL.
     * @param mode - A string of letters: `r` to read, `w` to write, and one of these: `e` if the file must exist (the
     *   default), `n` to create a file that must not exist, `o` to open or create it, `c` to truncate or create it. Of
     *   several such letters, the last one counts.
     * @returns Whether the file is open.
     *
     * @example
     * var file = external.fileIO;
     * file.open('no such file', 'r');  //= false
     * file.open('new.txt', 'rwn');  //= true
     * file.close();
     * external.file.deleteFile('new.txt');
     */
    open(path: string, mode: string): boolean;

    /** Closes the file. A closed object moves no bytes and has a {@link FileIO.size} of 0. */
    close(): void;

    /**
     * Reads bytes from the file and writes them to the stream, at the positions of both.
     *
     * @param length - The number of bytes; -1 for all remaining bytes, up to 4 GiB.
     * @returns The number of bytes moved, even if the operation stopped early.
     * @throws 0x80070057 if the length is 0 or more than 2147483647, or without a stream.
     *
     * @example
     * var file = external.fileIO, bytes = external.stream;
     * file.open('notes.txt', 'r');
     * file.read(bytes, 5);  //= 5
     * file.read(bytes, 100);  //= 8
     * file.close();
     */
    read(stream: Stream, length: number): number;

    /**
     * Reads bytes from the stream and writes them to the file, at the positions of both.
     *
     * @param length - The number of bytes; -1 for all remaining bytes, up to 4 GiB.
     * @returns The number of bytes moved, even if the operation stopped early.
     * @throws 0x80070057 if the length is 0 or more than 2147483647, or without a stream.
     *
     * @example
     * var file = external.fileIO, bytes = external.stream;
     * bytes.writeString('Carrots');
     * bytes.seek(0, bytes.BEGIN);
     * file.open('list.txt', 'wc');
     * file.write(bytes, -1);  //= 7
     * file.close();
     * external.file.deleteFile('list.txt');
     */
    write(stream: Stream, length: number): number;

    /**
     * Reads on another thread, and passes each chunk to `progress`.
     *
     * Closing the file meanwhile makes the operation fail with 0x80070006; releasing the object does not. All
     * operations on one object share one position.
     *
     * @returns Whether the operation has started. If not, `fail` has been called, with 0x80070057 if `len` is missing
     *   or of the wrong type, or if there is a `src`.
     *
     * @example
     * // On the page control. The example of `writeAsync` runs on both engines.
     * var file = external.fileIO, bytes = external.stream;
     * file.open('notes.txt', 'r');
     * file.readAsync({
     *   len: window['BigInt'](100),  // not in ES5, so the compiler does not know the name
     *   progress: function (chunk) { chunk.copyTo(bytes); },
     *   success: function () {
     *     bytes.getSize();  //= 13
     *     file.close();
     *   }
     * });
     * external.fileIO.readAsync({
     *   len: 100,  // a plain number
     *   fail: function (code) {
     *     code;  //= -2147024809
     *   }
     * });
     */
    readAsync(options: ReadAsyncOptions): boolean;

    /**
     * Writes on another thread.
     *
     * If `len` is greater than the number of bytes in `src`, the last chunk is padded with undefined bytes. Closing the
     * file meanwhile makes the operation fail with 0x80070006; releasing the object does not. All operations on one
     * object share one position.
     *
     * @returns Whether the operation has started. If not, `fail` has been called, with 0x80070057 if `len` is missing
     *   or of the wrong type, or if there is no `src`.
     *
     * @example
     * // Copies a file.
     * function unsigned(number) {
     *   if (window['BigInt']) return window['BigInt'](number);  // on the page control
     *   var bytes = external.stream;  // on the old engine
     *   bytes.writeUInt32(number);
     *   bytes.seek(0, bytes.BEGIN);
     *   return bytes.readUInt32();
     * }
     * var from = external.fileIO, to = external.fileIO, bytes = external.stream;
     * from.open('notes.txt', 'r');
     * to.open('copy of notes.txt', 'wn');  //= true
     * from.readAsync({
     *   len: unsigned(from.size),
     *   progress: function (chunk) { chunk.copyTo(bytes); },
     *   success: function () {
     *     bytes.seek(0, bytes.BEGIN);
     *     to.writeAsync({ src: bytes, len: unsigned(bytes.getSize()), success: copied });
     *   }
     * });
     * function copied() {
     *   to.size;  //= 13
     *   to.close();
     *   from.close();
     *   external.file.deleteFile('copy of notes.txt');  //= true
     * }
     */
    writeAsync(options: WriteAsyncOptions): boolean;

    /**
     * Moves the position, possibly beyond the end.
     *
     * @param offset - A whole number, which may be negative.
     * @param origin - {@link FileIO.BEGIN}, {@link FileIO.CURRENT} or {@link FileIO.END}.
     * @returns The new position; `undefined` if it failed.
     *
     * @example
     * var file = external.fileIO, bytes = external.stream;
     * file.open('notes.txt', 'r');
     * file.seek(-6, file.END);  //= 7
     * file.seek(1, file.CURRENT);  //= 8
     * file.read(bytes, 3);  //= 3
     * file.close();
     */
    seek(offset: number, origin: 0 | 1 | 2): number | undefined;

    /**
     * The size of the file in bytes. Setting it keeps the position. A failure is not reported, and may move the
     * position.
     *
     * @example
     * var file = external.fileIO;
     * file.open('new.dat', 'rwc');
     * file.size = 1000;
     * file.size;  //= 1000
     * file.close();
     * external.file.deleteFile('new.dat');
     */
    size: number;

    /** For {@link FileIO.seek}: from the beginning. */
    readonly BEGIN: 0;
    /** For {@link FileIO.seek}: from the current position. */
    readonly CURRENT: 1;
    /** For {@link FileIO.seek}: from the end. */
    readonly END: 2;

    /**
     * The status of success.
     *
     * @example
     * external.fileIO.S_OK;  //= 0
     */
    readonly S_OK: 0;

    /**
     * The status 0x80004004, for comparisons.
     *
     * @example
     * external.fileIO.E_ABORT;  //= -2147467260
     */
    readonly E_ABORT: -2147467260;
  }

  /** The options of {@link FileIO.readAsync}. */
  interface ReadAsyncOptions {
    /**
     * The number of bytes: an unsigned 32-bit integer.
     *
     * JavaScript's plain numbers have another type and are refused. On the page control, `BigInt(n)` creates an
     * unsigned integer. The old engine has no BigInt, but keeps the type of a number that a member returns: there, use
     * the result of {@link Stream.readUInt32}. On both engines, {@link FileIO.read} accepts plain numbers.
     */
    len: number | bigint;
    /**
     * Called for each chunk of at most 65536 bytes. The result `false` ends the operation with no further call.
     *
     * @param chunk - A new stream with the chunk's bytes, positioned at the beginning.
     */
    progress?(chunk: Stream, context: any): boolean | void;
    /** Called when the operation has succeeded, even if the file was shorter than `len`. */
    success?(context: any): void;
    /** Called when the operation has failed. An error in `progress` makes the operation fail, too. */
    fail?(code: number, context: any): void;
    /** Passed to the functions. */
    context?: any;
  }

  /** The options of {@link FileIO.writeAsync}. */
  interface WriteAsyncOptions {
    /** The source of the bytes. The page must not use it until the end. */
    src: Stream;
    /**
     * The number of bytes: an integer of the type that {@link ReadAsyncOptions.len} requires.
     *
     * On both engines, {@link FileIO.write} accepts plain numbers.
     */
    len: number | bigint;
    /** Called for each chunk of at most 65536 bytes. The result `false` ends the operation with no further call. */
    progress?(context: any): boolean | void;
    /** Called when the operation has succeeded, even if the stream was shorter than `len`. */
    success?(context: any): void;
    /** Called when the operation has failed. An error in `progress` makes the operation fail, too. */
    fail?(code: number, context: any): void;
    /** Passed to the functions. */
    context?: any;
  }

  /** The encoding of a text: UTF-8, UTF-16, or the system's ANSI code page. Not case-sensitive. */
  type Encoding = 'utf8' | 'unicode' | 'ansi';

  /**
   * The plug-in `stream`: a block of bytes in memory with a position. It grows when it is written to.
   *
   * Each read of `window.external.stream` returns a new, empty stream.
   *
   * Other plug-ins use streams to receive and return bytes; do not use a stream while another plug-in works on it.
   * Integers are little-endian. Counts and lengths are in bytes: -1, or none, means all bytes, and 0 throws 0x80070057.
   *
   * @example
   * var bytes = external.stream;
   * bytes.writeUInt16(640);
   * bytes.writeString('beds');
   * bytes.seek(0, bytes.BEGIN);
   * bytes.readUInt16();  //= 640
   * bytes.readString('utf8', 4);  //= 'beds'
   */
  interface Stream {
    /**
     * Copies bytes from the position of this stream to the position of another. The position of this stream stays.
     *
     * @param count - The number of bytes; default: all.
     * @returns The number of bytes.
     * @throws 0x80004002 if the target is not a stream, 0x8007000E if there is not enough memory.
     *
     * @example
     * var from = external.stream, to = external.stream;
     * from.writeString('Beans and peas');
     * from.seek(0, from.BEGIN);
     * from.copyTo(to, 5);  //= 5
     * to.getSize();  //= 5
     */
    copyTo(target: Stream, count?: number): number;

    /**
     * Moves the position. It may be beyond the end; a write there fills the gap with zeros.
     *
     * @param offset - Not negative.
     * @param origin - {@link Stream.BEGIN}, {@link Stream.CURRENT} or {@link Stream.END}.
     * @returns The new position.
     * @throws 0x80070057 if the offset is negative or the origin is unknown.
     *
     * @example
     * var bytes = external.stream;
     * bytes.writeUInt32(1);
     * bytes.seek(0, bytes.BEGIN);  //= 0
     * bytes.seek(2, bytes.CURRENT);  //= 2
     * bytes.seek(6, bytes.END);  //= 10
     * bytes.writeUInt8(255);
     * bytes.getSize();  //= 11
     */
    seek(offset: number, origin: 0 | 1 | 2): number;

    /**
     * Truncates the content, or extends it with zeros. The position stays.
     *
     * @returns `false` if there is not enough memory.
     *
     * @example
     * var bytes = external.stream;
     * bytes.setSize(8);  //= true
     * bytes.readUInt32();  //= 0
     */
    setSize(size: number): boolean;

    /**
     * Returns the number of bytes. It is a 64-bit integer, which the old engine can pass on but cannot calculate with.
     *
     * @example
     * external.stream.getSize();  //= 0
     */
    getSize(): number;

    /**
     * Reads the byte at the position, which moves on.
     *
     * @returns `null` at the end.
     *
     * @example
     * var bytes = external.stream;
     * bytes.writeUInt32(0x04030201);
     * bytes.seek(0, bytes.BEGIN);
     * bytes.readUInt8();  //= 1
     * bytes.readUInt16();  //= 0x0302
     * bytes.readUInt16();  //= null
     */
    readUInt8(): number | null;

    /**
     * Writes the low 8 bits of a number.
     *
     * @returns `false` if there is not enough memory.
     *
     * @example
     * var bytes = external.stream;
     * bytes.writeUInt8(0x1FF);  //= true
     * bytes.seek(0, bytes.BEGIN);
     * bytes.readUInt8();  //= 0xFF
     */
    writeUInt8(value: number): boolean;

    /**
     * Reads an unsigned 16-bit integer at the position, which moves on.
     *
     * @returns `null` if fewer bytes remain; the position then stays.
     */
    readUInt16(): number | null;

    /**
     * Writes the low 16 bits of a number.
     *
     * @returns `false` if there is not enough memory.
     */
    writeUInt16(value: number): boolean;

    /**
     * Reads an unsigned 32-bit integer at the position, which moves on.
     *
     * @returns `null` if fewer bytes remain; the position then stays.
     */
    readUInt32(): number | null;

    /**
     * Writes a 32-bit integer. A negative one reads back as the unsigned integer with the same bits.
     *
     * @returns `false` if there is not enough memory.
     *
     * @example
     * var bytes = external.stream;
     * bytes.writeUInt32(-1);  //= true
     * bytes.seek(0, bytes.BEGIN);
     * bytes.readUInt32();  //= 4294967295
     */
    writeUInt32(value: number): boolean;

    /**
     * Reads an unsigned 64-bit integer at the position, which moves on. Above 2^53, it is rounded.
     *
     * @returns `null` if fewer bytes remain; the position then stays.
     *
     * @example
     * var bytes = external.stream;
     * bytes.writeUInt32(1);
     * bytes.writeUInt32(2);
     * bytes.seek(0, bytes.BEGIN);
     * bytes.readUInt64();  //= 8589934593
     */
    readUInt64(): number | null;

    /**
     * Writes the 8 bytes of a *floating-point* number.
     *
     * So {@link Stream.readUInt64} does not return the same number; this is by design.
     *
     * @returns `false` if there is not enough memory.
     *
     * @example
     * var bytes = external.stream;
     * bytes.writeUInt64(1);  //= true
     * bytes.seek(0, bytes.BEGIN);
     * bytes.readUInt64();  //= 0x3FF0000000000000
     */
    writeUInt64(value: number): boolean;

    /**
     * Reads bytes at the position as a text.
     *
     * Zeros at the end of these bytes are not part of the text, and the position does not move past them. Other zeros
     * are part of the text.
     *
     * @param encoding - Default: `utf8`.
     * @param length - The number of bytes; default: all.
     * @returns `null` at the end.
     * @throws 0x80070057 for an unknown encoding.
     *
     * @example
     * var bytes = external.stream, first = bytes.writeString('Käse'), second = bytes.writeString('Brot');
     * bytes.seek(0, bytes.BEGIN);
     * bytes.readString('utf8', first);  //= 'Käse'
     * bytes.readString('utf8', second);  //= 'Brot'
     * bytes.readString();  //= null
     */
    readString(encoding?: Encoding, length?: number): string | null;

    /**
     * Writes a text. If you write several in a row, keep their lengths to read them back.
     *
     * @param encoding - Default: `utf8`. `unicode` and `ansi` write a zero after the text, `utf8` does not.
     * @returns The number of bytes written.
     * @throws 0x80070057 for an unknown encoding, 0x8007000E if there is not enough memory.
     *
     * @example
     * external.stream.writeString('Käse');  //= 5
     * external.stream.writeString('Käse', 'unicode');  //= 10
     */
    writeString(text: string, encoding?: Encoding): number;

    /**
     * Sets bytes of the content, from the position on, to a value. It never extends the stream.
     *
     * @param value - At most 255; a greater value throws 0x80070057.
     * @param count - The number of bytes; default: all up to the end.
     * @returns The number of bytes.
     *
     * @example
     * var bytes = external.stream;
     * bytes.setSize(10);
     * bytes.fill(32, 4);  //= 4
     * bytes.fill(33);  //= 6
     */
    fill(value: number, count?: number): number;

    /** For {@link Stream.seek}: from the beginning. */
    readonly BEGIN: 0;
    /** For {@link Stream.seek}: from the current position. */
    readonly CURRENT: 1;
    /** For {@link Stream.seek}: from the end. */
    readonly END: 2;
  }

  /**
   * The plug-in `minizip`: ZIP archives.
   *
   * Each operation runs on its own thread; any number can run in parallel.
   *
   * That thread reads the options, so do not change the option object until the end. Relative paths are relative to the
   * current folder.
   */
  interface MiniZip {
    /**
     * Unpacks an archive, and returns immediately.
     *
     * Exactly one of `success` and `fail` is called at the end. After a failure, files that were unpacked stay, unless
     * the operation itself created `dest`: then that folder is removed.
     *
     * - Nothing is written outside `dest`. An entry with a refused name makes the operation fail, unless `progress`
     *   returns `0` for it. Refused names are paths that lead outside `dest`, empty names, names with a colon or a NUL,
     *   and names of devices, such as `con` and `aux.txt`. The same applies to an entry whose record in the archive's
     *   directory is damaged.
     * - Names that are not marked as UTF-8 are read in the ANSI code page of the system. Many programs write them in an
     *   OEM code page instead, such as 437; then letters outside ASCII come out wrong.
     * - An empty entry that has the name of a folder in the archive counts as that folder, even without a slash at its
     *   end.
     * - Archives of more than 65,535 entries or 4 GiB, and others whose directory has the format Zip64, cannot be read.
     *
     * @throws 0x80070057 without an option object.
     *
     * @example
     * var names = [];
     * external.minizip.unzip({
     *   src: 'garden.zip', dest: 'unpacked', overWrite: true,
     *   progress: function (name, total, done) {
     *     if (total === undefined) names.push(name);
     *     else document.title = Math.round(100 * done / total) + ' %';
     *   },
     *   success: function () {
     *     names.length;  //= 4
     *   },
     *   fail: function (context, code) { alert('It failed: ' + code); }
     * });
     *
     * @example
     * external.minizip.unzip({
     *   src: 'notes.txt', dest: 'unpacked',
     *   fail: function (context, code) {
     *     code;  //= -2147467259
     *   }
     * });
     */
    unzip(options: UnzipOptions): void;

    /**
     * Unpacks an archive in memory.
     *
     * The archive is read at its address, without a copy: a plug-in library creates the option object, and keeps the
     * memory valid until the end.
     *
     * @example
     * function unpack(options) {  // from a plug-in library, with buffer and length
     *   options.dest = 'unpacked';
     *   options.fail = function (none, context, code) { alert('It failed: ' + code); };
     *   external.minizip.unzip(options);
     * }
     */
    unzip(options: UnzipMemoryOptions): void;

    /**
     * Packs files and folders, and returns immediately.
     *
     * Exactly one of `success` and `fail` is called at the end. After a failure, the new file is removed, even if it
     * replaced another one; a stream keeps the bytes that were written.
     *
     * - Names in the archive are relative to the folder in `src`, which has no entry itself. Each folder below it has
     *   an entry, after its contents. So an empty folder yields an empty archive.
     * - A file that `src` lists itself has its plain name in the archive.
     * - Write a folder without a backslash at its end. With one, the names directly below it lose their first letter,
     *   and a name of one letter makes the operation fail.
     * - A file that disappears while others are packed becomes an empty entry with its name and a slash.
     * - If `src` lists two files with the same name, both are packed under that name. `unzip` then fails at the second
     *   file, or replaces the first one if `overWrite` is set.
     * - `dest` may be in a folder of `src`: the archive does not contain itself.
     * - A file that grows while it is read is packed up to its original size.
     * - An archive has at most 65,535 entries and no name with a colon. The archive and each file must be smaller than
     *   4 GiB.
     *
     * @throws 0x80070057 without an option object.
     *
     * @example
     * external.minizip.zip({
     *   src: 'notes.txt', dest: 'notes.zip', overWrite: true,
     *   progress: function (path, total) { document.title = path; },
     *   success: function () {
     *     external.file.deleteFile('notes.zip');  //= true
     *   },
     *   fail: function (code, context) { alert('It failed: ' + code); }
     * });
     *
     * @example
     * var bytes = external.stream;
     * external.minizip.zip({
     *   src: ['notes.txt', 'second.html'], dest: bytes,
     *   success: function () {
     *     bytes.seek(0, bytes.BEGIN);
     *     bytes.readString('utf8', 2);  //= 'PK'
     *   }
     * });
     */
    zip(options: ZipOptions): void;
  }

  /** The options of both forms of {@link MiniZip.unzip}. */
  interface UnzipRunOptions {
    /** The folder to unpack into; it is created if it does not exist. */
    dest: string;
    /** `true` replaces existing files; otherwise, an existing file makes the operation fail. */
    overWrite?: boolean;
    /**
     * Receives the progress, and can skip entries or cancel the operation.
     *
     * It is called before each entry, with the entry's name alone, and for each chunk written. The result `false`
     * cancels the operation. The result `0` before an entry skips it, even one that would make the operation fail. An
     * error counts as no result.
     *
     * @param name - The entry's name in the archive.
     * @param total - The bytes of all entries, at most 4294967295. Before an entry, this argument and the next ones are
     *   missing.
     * @param processed - The bytes that were written.
     */
    progress?(name: string, total?: number, processed?: number, context?: any): boolean | number | void;
    /** Called when the operation has succeeded. */
    success?(context: any): void;
    /** Passed to the functions. */
    context?: any;
  }

  /**
   * The options of {@link MiniZip.unzip} for an archive in a file.
   *
   * The `code` of `fail` is a status as a number with a sign:
   *
   * - 0x80070002 and other 0x8007....: a file could not be opened or created; the low half is the system's error;
   * - 0x80070050: a file exists already;
   * - 0x800700B7: a file is in the place of a folder, or a folder in the place of a file; it may be from this archive
   *   or have existed before;
   * - 0x80070057: `dest` is missing;
   * - 0x80004004: `progress` cancelled the operation before an entry;
   * - 0x80004005: any other failure: no archive or a damaged one, an entry with a refused name, a full disk, a cancel
   *   by `progress` within an entry.
   */
  interface UnzipOptions extends UnzipRunOptions {
    /** The file that contains the archive, at its end: a ZIP file, or any file with archives attached. */
    src: string;
    /** Which archive of the file, counted from the end: a whole number; default: 0, the last one. */
    index?: number;
    /** Called when the operation has failed. The order of the arguments differs from other members. */
    fail?(context: any, code: number): void;
  }

  /**
   * The options of {@link MiniZip.unzip} for an archive in memory.
   *
   * The codes are those of {@link UnzipOptions}; 0x80070057 also means that the memory at `buffer` cannot be read.
   */
  interface UnzipMemoryOptions extends UnzipRunOptions {
    /** Not used. */
    src?: undefined;
    /** The address: a 64-bit integer. JavaScript has no such numbers, so a plug-in library sets it. */
    buffer: any;
    /** The size in bytes, likewise. */
    length: any;
    /** Called when the operation has failed. */
    fail?(none: null, context: any, code: number): void;
  }

  /**
   * The options of {@link MiniZip.zip}.
   *
   * The `code` of `fail` is a status as a number with a sign:
   *
   * - 0x80070050: the archive exists already;
   * - other 0x8007....: `dest` could not be created, or a file or folder that `src` lists could not be opened; the low
   *   half is the system's error;
   * - 0x80004005: any other failure: a path of `src` that does not exist, a file that cannot be read or shrinks while
   *   it is read, a full disk, a `dest` of another type, a cancel by `progress`.
   */
  interface ZipOptions {
    /** The files and folders, in the order in which they are packed. */
    src: string | string[];
    /**
     * The archive's path, or a stream.
     *
     * A stream receives the archive from its beginning on. The page must not use it until `success` or `fail` is
     * called. If the stream was longer than the archive, its remaining bytes stay.
     */
    dest: string | Stream;
    /** `true` replaces the file `dest`; otherwise, an existing file makes the operation fail. */
    overWrite?: boolean;
    /**
     * Called after each write to the archive. The result `false` cancels the operation.
     *
     * @param path - The file or folder that is being packed; `''` for an archive without entries.
     * @param total - The bytes of all files. `total` and `processed` are 64-bit integers, which the old engine can pass
     *   on but cannot calculate with.
     * @param processed - Always 0.
     */
    progress?(path: string, total: number, processed: number, context: any): boolean | void;
    /** Called when the operation has succeeded. */
    success?(context: any): void;
    /**
     * Called when the operation has failed. The order of the arguments is the reverse of that in `unzip`.
     */
    fail?(code: number, context: any): void;
    /** Passed to the functions. */
    context?: any;
  }

  /**
   * The plug-in `system`: command line, environment, programs, shortcuts and the power state.
   *
   * Paths are relative to the page, except that {@link System.parseShortcut} requires a full path. The members that
   * change the power state do not prompt the user; that is up to the page.
   *
   * At its first use, the plug-in sets environment variables to the user's folders: `DESKTOP`, `STARTMENU`, `STARTUP`,
   * `PROGRAMS`, the same four for all users (`COMMON_DESKTOP` and so on), `SENDTO`, `MYDOCUMENTS`, and `LOCALAPPDATA`
   * if it is not set. Programs that the page starts inherit them.
   */
  interface System {
    /**
     * Ends the session and restarts the system.
     *
     * @returns Whether it has begun.
     *
     * @example
     * function onRestartButton() {
     *   if (!external.system.reboot()) alert('The system does not restart.');
     * }
     */
    reboot(): boolean;

    /**
     * Ends the session and shuts the system down.
     *
     * @returns Whether it has begun.
     *
     * @example
     * function onOffButton() {
     *   if (!external.system.shutdown()) alert('The system does not end.');
     * }
     */
    shutdown(): boolean;

    /**
     * Hibernates: the system saves its memory to disk and turns off. The spelling of the name is part of the interface.
     *
     * @returns Whether it succeeded.
     *
     * @example
     * function onSleepButton(deeply) {
     *   return deeply ? external.system.hiberhates() : external.system.suspended();
     * }
     */
    hiberhates(): boolean;

    /**
     * Puts the system to sleep; its memory stays powered.
     *
     * @returns Whether it succeeded.
     */
    suspended(): boolean;

    /**
     * Turns the monitor off.
     *
     * @returns `true`.
     *
     * @example
     * function onLeaveButton() {
     *   external.system.lockWorkStation();
     *   external.system.closeMonitor();
     * }
     */
    closeMonitor(): boolean;

    /**
     * Locks the screen.
     *
     * @returns Whether locking has begun.
     */
    lockWorkStation(): boolean;

    /**
     * Throws, whatever its arguments are, to end the script.
     *
     * @throws 0x80004004
     *
     * @example
     * try {
     *   external.system.abort();
     * } catch (error) {
     *   error.number;  //= -2147467260
     * }
     */
    abort(...ignored: any[]): never;

    /**
     * Opens a file, a program or an address.
     *
     * @returns With `exitCallback`: whether it was started. Without it, the reverse: `false` if it was started, `true`
     *   if not, including when the user refuses; an empty `path` also returns `false`. Existing scripts rely on this.
     *
     * @example
     * external.system.shellExecute({
     *   path: external.system.getEnvirVar('COMSPEC'), args: '/c exit 3', context: 'cmd',
     *   exitCallback: function (code, context) {
     *     code;  //= 3
     *   }
     * });
     *
     * @example
     * function openInBrowser(address) {
     *   var failed = external.system.shellExecute({ path: address });
     *   if (failed) alert('It cannot be opened.');
     * }
     */
    shellExecute(options: ShellExecuteOptions): boolean;

    /**
     * Creates a shortcut. The target program will start in its own folder.
     *
     * @returns Whether it was saved; `false` if both or neither of `dest` and `desktop` are given.
     *
     * @example
     * var link = external.system.expandEnvirPath('%TEMP%\\notes.lnk');
     * external.system.createShortcut({ src: 'notes.txt', dest: link, arg: '-f beds' });  //= true
     * external.system.parseShortcut(link).args;  //= '-f beds'
     * external.file.deleteFile(link);
     *
     * @example
     * function onDesktopButton(program) {
     *   external.system.createShortcut({ src: program, desktop: true, destName: 'Garden planner' });
     * }
     */
    createShortcut(options: CreateShortcutOptions): boolean;

    /**
     * Returns the target of a shortcut.
     *
     * @param path - A full path.
     * @returns `null` if the file is not a shortcut to a file.
     *
     * @example
     * var link = external.system.expandEnvirPath('%TEMP%\\notes.lnk');
     * external.system.createShortcut({ src: 'notes.txt', dest: link });
     * /\\notes\.txt$/.test(external.system.parseShortcut(link).path);  //= true
     * external.file.deleteFile(link);
     * external.system.parseShortcut(link);  //= null
     */
    parseShortcut(path: string): ParsedShortcut | null;

    /**
     * Returns the value of an environment variable.
     *
     * @returns `null` if the variable does not exist or is empty; `''` for a value of 520 characters or more.
     *
     * @example
     * external.system.getEnvirVar('NO SUCH VARIABLE');  //= null
     * external.file.isDir(external.system.getEnvirVar('MYDOCUMENTS'));  //= true
     */
    getEnvirVar(name: string): string | null;

    /**
     * Replaces each `%name%` in a text by the variable's value; unknown names stay as they are.
     *
     * @returns `''` if the result has 520 characters or more, `null` if the system fails.
     *
     * @example
     * var folder = external.system.getEnvirVar('DESKTOP');
     * external.system.expandEnvirPath('%DESKTOP%\\a.txt') === folder + '\\a.txt';  //= true
     * external.system.expandEnvirPath('%NO SUCH%');  //= '%NO SUCH%'
     */
    expandEnvirPath(text: string): string | null;

    /**
     * Pins a program to the task bar, by the command of the file's context menu.
     *
     * @returns `false` if the menu has no such command, as in newer systems.
     *
     * @example
     * external.system.pinToTaskbar('no such.exe');  //= false
     * function onPinButton(program) {
     *   if (!external.system.pinToTaskbar(program)) alert('Please pin it by hand.');
     * }
     */
    pinToTaskbar(path: string): boolean;

    /**
     * Unpins a program from the task bar, by the command of the file's context menu.
     *
     * @returns `false` if the menu has no such command, as in newer systems.
     *
     * @example
     * external.system.unpinFromTaskbar('no such.exe');  //= false
     */
    unpinFromTaskbar(path: string): boolean;

    /**
     * Registers a COM library: loads it, calls its `DllRegisterServer`, and frees it.
     *
     * Most libraries require elevated privileges for this.
     *
     * @returns Whether the library returned exactly 0.
     *
     * @example
     * external.system.registerDll('no such.dll');  //= false
     * function install(library) {
     *   if (!external.system.registerDll(library)) alert('It needs an administrator.');
     * }
     */
    registerDll(path: string): boolean;

    /**
     * Unregisters a COM library: loads it, calls its `DllUnregisterServer`, and frees it.
     *
     * Most libraries require elevated privileges for this.
     *
     * @returns Whether the library returned exactly 0.
     *
     * @example
     * external.system.unregisterDll('no such.dll');  //= false
     */
    unregisterDll(path: string): boolean;

    /**
     * Whether the program runs with an administrator's privileges.
     *
     * Writing `true` restarts the program elevated, which prompts the user, and ends this process even if the user
     * refuses; the assignment throws 0x80004004. It has no effect if the program is already elevated, and neither has
     * writing `false`. The new process gets the same command line, but without its quotes: an argument that contains a
     * blank arrives as two.
     *
     * @example
     * typeof external.system.administrator;  //= 'boolean'
     * function onAdministratorButton() {
     *   if (!external.system.administrator) external.system.administrator = true;
     * }
     */
    administrator: boolean;

    /** The command line of the program. */
    readonly cmdArgs: CommandLine;

    /**
     * The system's language and country, like `en-US`; `undefined` if the system does not report it.
     *
     * @example
     * /^[a-z]+-/.test(external.system.systemLanguage);  //= true
     */
    readonly systemLanguage: string | undefined;

    /**
     * The user's language and country, like `en-US`; `undefined` if the system does not report it.
     *
     * @example
     * document.documentElement.lang = external.system.userLanguage || 'en';
     */
    readonly userLanguage: string | undefined;

    /**
     * Always `true`.
     *
     * @example
     * external.system.isX64Process;  //= true
     */
    readonly isX64Process: boolean;

    /**
     * Whether this is a 32-bit program on a 64-bit system; so it is `false` for a 64-bit program.
     *
     * @example
     * external.system.isX64System;  //= false
     */
    readonly isX64System: boolean;
  }

  /** The options of {@link System.shellExecute}. */
  interface ShellExecuteOptions {
    /** A file or a program, by a full path or a path relative to the page, or an address. */
    path: string;
    /** The program's arguments, passed as they are; put quotes around arguments that contain blanks. */
    args?: string;
    /** The folder in which it starts. */
    workDir?: string;
    /** `true` prompts the user for elevation, unless this program is already elevated. */
    requestAdmin?: boolean;
    /**
     * Called when the program has ended; there is no timeout.
     *
     * It is not called if a program that was already running opens the file or address. With this option, the system
     * may show the user why the program was not started, and the call waits until the user closes that message. There
     * is no message if the user has refused elevation.
     *
     * @param code - The program's exit code.
     */
    exitCallback?(code: number, context: any): void;
    /** Passed to the function. */
    context?: any;
  }

  /** The options of {@link System.createShortcut}. */
  interface CreateShortcutOptions {
    /** The target: a file or an address. */
    src: string;
    /** The arguments for a target program. */
    arg?: string;
    /** The path of the shortcut. `.lnk`, or `.url` for an address, is appended if it is missing. */
    dest?: string;
    /** `true` creates it on the desktop, instead of `dest`. */
    desktop?: boolean;
    /**
     * Its name on the desktop.
     *
     * The default is the target file's name with its extension: `b.exe` becomes `b.exe.lnk`. An address requires a
     * name, and `n` becomes `n.lnk.url`.
     */
    destName?: string;
    /** A file that contains icons. */
    icon?: string;
    /** The index of an icon in `icon`: a whole number; default: 0. Without `icon`, it has no effect. */
    iconIndex?: number;
  }

  /** The result of {@link System.parseShortcut}. */
  interface ParsedShortcut {
    /** The target file. */
    path: string;
    /** The arguments for the target. */
    args: string;
  }

  /**
   * The command line of the program. Names of switches and keys are not case-sensitive, and one `-` or `/` before them
   * is ignored.
   *
   * @example
   * var args = external.system.cmdArgs, all = [];
   * for (var i = 0; i < args.getOrgArgsCount(); i++) all.push(args.getOrgArg(i));
   * all.length > 0;  //= true
   * args.isSwitchExist('no such switch');  //= false
   * args.getArgPair('no such key');  //= null
   */
  interface CommandLine {
    /** Returns the number of arguments, the program included. */
    getOrgArgsCount(): number;

    /**
     * Returns an argument; the program has the index 0.
     *
     * @returns `null` if the index is out of range.
     */
    getOrgArg(index: number): string | null;

    /** Returns whether there is a switch with this name: `-s`, `/s` or a bare word. */
    isSwitchExist(name: string): boolean;

    /**
     * Returns the value of a pair: `-key value`, `/key value` or `key=value`. After a `=`, it has at most 99
     * characters.
     *
     * @returns `null` if there is no such key.
     */
    getArgPair(name: string): string | null;
  }

  /**
   * The plug-in `registry`: the Windows registry.
   *
   * A path begins with `HKEY_CLASSES_ROOT`, `HKEY_CURRENT_CONFIG`, `HKEY_CURRENT_USER`, `HKEY_LOCAL_MACHINE` or
   * `HKEY_USERS`. The root's name is not case-sensitive, and any character after it counts as its backslash. The part
   * after the last backslash is the name of a value, or of the key to delete. A path that ends in a backslash refers to
   * the key's default value. Names that contain zeros are refused.
   *
   * @example
   * var registry = external.registry, key = 'HKEY_CURRENT_USER\\Software\\Tarvik example';
   * registry.createKey(key);  //= true
   * registry.setValue(key + '\\width', 640);  //= true
   * registry.queryValue(key + '\\width');  //= 640
   * registry.deleteKey(key);  //= true
   * registry.isKeyExist(key);  //= false
   */
  interface Registry {
    /**
     * Creates a key and its parent keys.
     *
     * @returns `true` also if the key exists already.
     */
    createKey(path: string): boolean;

    /**
     * Deletes a key with everything below it.
     *
     * It stops at the first item that cannot be deleted; the items before it stay deleted.
     *
     * @returns Whether everything was deleted; `false` also if the key does not exist, for a path that ends in a
     *   backslash, and for a root alone.
     */
    deleteKey(path: string): boolean;

    /**
     * Writes a value to an existing key. Its type determines how it is stored:
     *
     * - a whole number of 32 bits as `REG_DWORD`;
     * - another number as `REG_QWORD`, without its fraction; beyond 64 bits, it is refused;
     * - a boolean as `REG_DWORD`, 1 or 0;
     * - a string as `REG_SZ`;
     * - any other type is refused.
     *
     * @returns Whether it was written.
     *
     * @example
     * var registry = external.registry, key = 'HKEY_CURRENT_USER\\Software\\Tarvik example';
     * registry.createKey(key);
     * registry.setValue(key + '\\', 'The default value');  //= true
     * registry.setValue(key + '\\maximized', true);  //= true
     * registry.setValue(key + '\\beds', null);  //= false
     * registry.deleteKey(key);
     */
    setValue(path: string, value: string | number | boolean): boolean;

    /**
     * Deletes a value.
     *
     * @returns `false` also if the value does not exist.
     *
     * @example
     * var registry = external.registry, key = 'HKEY_CURRENT_USER\\Software\\Tarvik example';
     * registry.createKey(key);
     * registry.setValue(key + '\\width', 640);
     * registry.deleteValue(key + '\\width');  //= true
     * registry.isValueExist(key + '\\width');  //= false
     * registry.deleteKey(key);
     */
    deleteValue(path: string): boolean;

    /**
     * Reads a value: a string for `REG_SZ` and `REG_EXPAND_SZ`, a number for `REG_DWORD` and `REG_QWORD`.
     *
     * Numbers are unsigned: -1 reads back as 4294967295. Above 2^53, they are rounded. Zeros at the end of a string are
     * removed. References in `REG_EXPAND_SZ`, like `%TEMP%`, are not expanded.
     *
     * @returns `null` if the value does not exist or has another type.
     *
     * @example
     * var registry = external.registry, key = 'HKEY_CURRENT_USER\\Software\\Tarvik example';
     * registry.createKey(key);
     * registry.setValue(key + '\\left', -1);
     * registry.queryValue(key + '\\left');  //= 4294967295
     * registry.queryValue(key + '\\top');  //= null
     * registry.deleteKey(key);
     */
    queryValue(path: string): string | number | null;

    /** Returns whether a key exists and can be read. */
    isKeyExist(path: string): boolean;

    /** Returns whether a value exists, of any type. */
    isValueExist(path: string): boolean;

    /**
     * The view of the registry on a 64-bit system: that of 32-bit or of 64-bit programs.
     *
     * The setting applies to this object only; the next read of `window.external.registry` returns an object with
     * `default`. Not case-sensitive.
     *
     * @throws 0x80070057 for any other value.
     *
     * @example
     * var registry = external.registry;
     * registry.mode;  //= 'default'
     * registry.mode = 'force32';
     * registry.isKeyExist('HKEY_LOCAL_MACHINE\\Software');  //= true
     * external.registry.mode;  //= 'default'
     */
    mode: 'default' | 'force32' | 'force64';
  }

  /**
   * The plug-in `config`: an application's settings, in the registry or in an INI file.
   *
   * Each read of `window.external.config` returns a new object. Call its {@link Config.init} first, to choose where its
   * settings are; the other members then take the number of arguments for that store. Before `init`, and with the
   * number of arguments for the other store, members return `false` or `null`.
   *
   * In the registry, below `HKEY_CURRENT_USER\Software`:
   *
   * - A name may contain backslashes, but not as its first or last character: `a\b` is the value `b` in the key `a`.
   *   Keys are created when they are needed.
   * - Values are strings and whole numbers of 32 bits only; booleans and fractions are refused. Numbers read back as
   *   unsigned.
   * - An object keeps its key open from its first use to `clear`. A second `init` with another name changes only which
   *   key the next `clear` deletes, and where values are written afterwards. If another object clears the key, this
   *   object writes nothing until its own `clear`.
   *
   * In a file:
   *
   * - Any value that can be converted to a string can be written, and reads back as a string: `true` as `-1`, a
   *   fraction in the format of the user's language. An empty string reads back as `undefined`, and a string of more
   *   than 10239 characters is cut.
   * - The system removes blanks around a text, and quotes around it. To keep blanks, put the text into double quotes.
   *   Letters that the system's ANSI code page does not contain become `?`, unless the file exists already and begins
   *   with the byte order mark of UTF-16.
   * - Sections and keys must not be empty, and are not case-sensitive. Text after a line break is read as a new line. A
   *   key that contains `=` or begins with `;` or `[`, and a section that contains `]`, can be written but not read.
   * - The file is created when it is first written, but its folder is not.
   *
   * @example
   * var config = external.config;
   * config.init('settings.ini', true);  //= true
   * config.setValue('window', 'width', 640);  //= true
   * config.queryValue('window', 'width');  //= '640'
   * config.clear();  //= true
   *
   * @example
   * var config = external.config;
   * config.init('Tarvik example');  //= true
   * config.setValue('window\\width', 640);  //= true
   * config.queryValue('window\\width');  //= 640
   * config.clear();  //= true
   */
  interface Config {
    /**
     * Chooses where the settings are stored.
     *
     * @param store - The name of a key below `HKEY_CURRENT_USER\Software`, or the path of an INI file, which is
     *   relative to the page and may be a `file:` URL.
     * @param isPath - `true` if `store` is a path.
     * @returns `false` for an empty `store`, for one that contains a zero, and for a name that consists of backslashes;
     *   the store then does not change.
     *
     * @example
     * external.config.init('');  //= false
     */
    init(store: string, isPath?: boolean): boolean;

    /**
     * Deletes all settings, or a part of them.
     *
     * @param part - A key, which is deleted with everything below it, or a section of the file. Default: all settings,
     *   which deletes the key or the file itself.
     * @returns Whether it succeeded; `false` for an empty `part`, and if the key or the file does not exist.
     *
     * @example
     * var config = external.config;
     * config.init('settings.ini', true);
     * config.setValue('window', 'width', 640);
     * config.clear('window');  //= true
     * config.queryValue('window', 'width');  //= null
     * config.clear();  //= true
     */
    clear(part?: string): boolean;

    /**
     * Writes a setting to the registry.
     *
     * @returns Whether it was written.
     */
    setValue(name: string, value: string | number): boolean;

    /**
     * Writes a setting to the file.
     *
     * @returns Whether it was written.
     */
    setValue(section: string, key: string, value: any): boolean;

    /**
     * Reads a setting from the registry.
     *
     * @returns `null` if it does not exist.
     */
    queryValue(name: string): string | number | null;

    /**
     * Reads a setting from the file.
     *
     * @returns `null` if it does not exist, `undefined` for an empty one.
     */
    queryValue(section: string, key: string): string | null | undefined;

    /**
     * Deletes a setting from the registry.
     *
     * @returns `true` also if it does not exist.
     *
     * @example
     * var config = external.config;
     * config.init('Tarvik example');
     * config.setValue('width', 640);
     * config.deleteValue('width');  //= true
     * config.queryValue('width');  //= null
     * config.clear();
     */
    deleteValue(name: string): boolean;

    /**
     * Deletes a setting from the file.
     *
     * @returns `true` also if it does not exist.
     *
     * @example
     * var config = external.config;
     * config.init('settings.ini', true);
     * config.deleteValue('window', 'width');  //= true
     */
    deleteValue(section: string, key: string): boolean;
  }

  /** The plug-in `http`: downloads and requests. */
  interface Http {
    /** Creates a client, which downloads to files. */
    createClient(): HttpClient;

    /**
     * Creates a request object of the system, `Microsoft.XMLHTTP`, for all requests other than downloads to files.
     *
     * @returns `undefined` if the system does not provide one.
     *
     * @example
     * var request = external.http.createXmlHttp();
     * request.readyState;  //= 0
     * function send(address, text) {
     *   request.open('POST', address, false);
     *   request.send(text);
     *   return request.status === 200 ? request.responseText : null;
     * }
     */
    createXmlHttp(): XmlHttp | undefined;
  }

  /** A client that downloads to files. It can run many downloads at the same time. */
  interface HttpClient {
    /**
     * Downloads an address to a file, on another thread.
     *
     * - If `progress` cancels a download, neither `success` nor `fail` is called, and the file is removed. There is no
     *   other way to cancel one.
     * - The server's status code is ignored: an error page is stored, and `success` is called.
     * - The header `Content-Length` determines the length of the body; bytes beyond it are not read. Without that
     *   header (as with chunked bodies), and with a length of 0, the download fails. Lengths of 2 GiB and more count as
     *   2147483647 bytes.
     * - Proxies are not used. If a server sends nothing for 30 seconds, the download fails.
     * - A download continues when the user leaves its page or closes its window, but calls no function any more. If the
     *   program ends first, an incomplete file stays. After a failure, the file is removed if it was created; after an
     *   error in the last call of `progress`, the complete file stays.
     * - The system may also store the body in its Internet cache, which takes the same disk space again.
     *
     * @returns Whether the download has started. If not, `fail` has been called.
     *
     * @example
     * var client = external.http.createClient(), stopped = false;
     * client.downloadToFile({
     *   url: 'http://127.0.0.1:1/garden.zip', destPath: 'download.zip',
     *   progress: function (done, total) { document.title = Math.round(100 * done / total) + ' %'; return !stopped; },
     *   success: function () { document.title = 'Here it is.'; },
     *   fail: function (code) {
     *     code === client.E_ACCESSDENIED ? 'Not there, please.' : 'No connection.';  //= 'No connection.'
     *   }
     * });
     */
    downloadToFile(options: DownloadOptions): boolean;

    /**
     * The status of success.
     *
     * @example
     * var client = external.http.createClient();
     * client.S_OK;  //= 0
     * client.E_ABORT;  //= -2147467260
     * client.E_ACCESSDENIED;  //= -2147024891
     * client.E_FILENOTFOUND;  //= -2147024894
     */
    readonly S_OK: 0;
    /** The status 0x80004004, for comparisons with a `code`. */
    readonly E_ABORT: -2147467260;
    /** The status 0x80070005, for comparisons with a `code`: access to the file is denied. */
    readonly E_ACCESSDENIED: -2147024891;
    /** The status 0x80070002, for comparisons with a `code`: the file does not exist. */
    readonly E_FILENOTFOUND: -2147024894;
  }

  /**
   * The options of {@link HttpClient.downloadToFile}.
   *
   * The `code` of `fail` is a status as a number with a sign:
   *
   * - 0x80070057: `url` or `destPath` is missing;
   * - 0x80004005: the length is 0 or not a number, or the body is shorter than its length;
   * - 0x80072F76: the server sends no length;
   * - other 0x80072E.. to 0x80072F..: the network's error: 0x80072EE2 timeout, 0x80072EE7 unknown server, 0x80072EFD no
   *   connection;
   * - other 0x8007....: the file could not be created or written; the low half is the system's error.
   */
  interface DownloadOptions {
    /** The full address. */
    url: string;
    /**
     * The file; relative to the page, or a `file:` URL.
     *
     * An existing file is replaced as soon as the server has responded.
     */
    destPath: string;
    /**
     * Called after each chunk of at most 65536 bytes, with the number of bytes done and the total.
     *
     * Only the result `false` cancels the download; an error makes it fail. In the last call, when both numbers are
     * equal, the file is complete and closed: the call can use it, and it stays whatever that call does.
     */
    progress?(done: number, total: number, context: any): boolean | void;
    /** Called when the download has succeeded. */
    success?(context: any): void;
    /** Called when the download has failed. An error in `progress` makes the operation fail, too. */
    fail?(code: number, context: any): void;
    /** Passed to the functions. */
    context?: any;
  }

  /** A request object of the system. These are its usual members; the system's documentation describes all of them. */
  interface XmlHttp {
    /** Initializes a request. */
    open(method: string, url: string, async?: boolean, user?: string, password?: string): void;
    /** Adds a header to the request. */
    setRequestHeader(name: string, value: string): void;
    /** Sends the request, and waits for the response unless it is asynchronous. Throws if there is no connection. */
    send(body?: any): void;
    /** Cancels the request. */
    abort(): void;
    /** Returns a header of the response. */
    getResponseHeader(name: string): string;
    /** Returns all headers of the response, one per line. */
    getAllResponseHeaders(): string;
    /** Called at each step of an asynchronous request. */
    set onreadystatechange(value: () => void);
    /** The state of the request, from 0 (not initialized) to 4 (done). */
    readonly readyState: number;
    /** The server's status code. */
    readonly status: number;
    /** The text of the status code. */
    readonly statusText: string;
    /** The body of the response as a text. */
    readonly responseText: string;
    /** The body of the response as a document. */
    readonly responseXML: any;
  }

  /**
   * The plug-in `ga`: reports to a measurement service which screens the user opens and what the user does there.
   *
   * It uses version 1 of the public measurement protocol. Each call sends one hit in the background. Script gets no
   * result, and a failed hit is lost. The setting `TARVIK_ANALYTICS_HOST` of the host's build names the service; by
   * default, hits go to the local machine only.
   *
   * Use plain texts: `trackingId` and `version` are sent as they are, and the others are escaped like the path of a
   * URL, so an `&` in them begins a new field. A text that consists only of characters to escape sends nothing. A hit
   * also contains an identifier of the machine, the user's language and the size of the screen.
   *
   * @example
   * var ga = external.ga;
   * ga.set('UA-12345-1', 'Garden planner', '1.2');
   * ga.page('beds');
   * ga.event('plant', 'tomato');
   * ga.event('harvest', 12);
   */
  interface Analytics {
    /**
     * Reports that the user has opened a screen. An empty text sends nothing.
     *
     * @throws 0x80004005 if the argument is not a string.
     *
     * @example
     * try {
     *   external.ga.page(undefined);
     * } catch (error) {
     *   error.number;  //= -2147467259
     * }
     */
    page(screen: string): void;

    /**
     * Reports an action of the user. With fewer arguments, or a `category` of another type, nothing happens.
     *
     * @param action - A string or a whole number. Any other type is sent as the number of its raw bits.
     */
    event(category: string, action: string | number): void;

    /**
     * Sets what all hits of this window report about the application. Without it, or with an empty `name`, no hit is
     * sent.
     *
     * @throws 0x80004005 if one of them is not a string.
     */
    set(trackingId: string, name: string, version: string): void;
  }
}
