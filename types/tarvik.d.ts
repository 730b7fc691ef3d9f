/**
 * What a page finds in the host: `window.external` with its plug-ins, and the globals that are there before its first
 * script runs. This file is the reference: the pages of the reference are made from it, and the tests compare it with
 * the host and run its examples.
 *
 * Beside it stands the library of the browser (`"lib": ["dom", "es5"]`).
 *
 * - A member that is called wrongly throws an {@link Tarvik.StatusError | Error} with a status as its `number`:
 *   0x80004001 for a wrong number of arguments, 0x80070057 for an argument of the wrong kind. A member that fails in
 *   its work answers `false` or `null`. What differs is told with the member.
 * - A method that is read without a call, and a property that is only written, throw 0x80004001 on the system's
 *   control, and read as a function on the page control. Some methods do not distinguish a read from a call without
 *   arguments: `loadPlugin`, `createWindow`, `addData` of a digest, and those of `console`, `dragfile` and `ga`. On the
 *   system's control a read of these gives `undefined`, or throws what such a call throws.
 * - A property that is called throws, too: 0x80004001 on the system's control, and mostly a `TypeError` on the page
 *   control.
 * - Options that are missing or of the wrong kind count as absent, and only `true` and `false` count as booleans.
 * - "Whole number" is one in 32 bits with a sign; others are refused where one is asked for.
 *
 * @packageDocumentation
 */

/**
 * `window.external`: what it has is told with {@link Tarvik.Host}. Two members of the browser's library are not there.
 *
 * @hidden
 */
interface External extends Tarvik.Host {}

/**
 * The plug-in of a name: `window.external[pluginName]`.
 *
 * @returns `undefined` for a name that there is no plug-in for.
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
 * The option `callback` of the {@link Tarvik.Host.createWindow | createWindow} that opened the page's window. The host
 * never calls it: the page does, when and how the two pages agree on.
 *
 * Only the first page of such a window has it, `undefined` where the option was not given. There is no such global in
 * the program's first window.
 */
declare var windowCallback: any;

/**
 * The option `context` of the {@link Tarvik.Host.createWindow | createWindow} that opened the page's window, as with
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
  interface Host {
    /** The window that the page lives in, its dialogs and its events; *retained*. */
    readonly window: Window;
    /** Menus that open at a place, and menu bars; *retained*. */
    readonly menu: Menus;
    /** The window's icon at the end of the task bar; *retained*. */
    readonly tray: Tray;
    /** Keys that are heard wherever the user works; *retained*. */
    readonly hotkey: Hotkey;
    /** The pointer and its buttons; *retained*. */
    readonly mouse: Mouse;
    /** Files that are dragged onto elements of the page; *retained*. */
    readonly dragfile: DragFile;
    /** Digests of texts; *retained*. */
    readonly hash: Hash;
    /** The author's log; *retained*. */
    readonly console: Console;
    /** Questions about files and folders; deleting, copying, moving and listing; *retained*. */
    readonly file: File;
    /** One open file, whose bytes go to streams and come from them; *transient*: each read gives a new one. */
    readonly fileIO: FileIO;
    /** A block of bytes with a position; *transient*: each read gives a new one, which is empty. */
    readonly stream: Stream;
    /** ZIP archives; *transient*: each read gives a new one. */
    readonly minizip: MiniZip;
    /** Command line, environment, programs, shortcuts and the power; *retained*. */
    readonly system: System;
    /** The system's registry; *transient*: each read gives a new one. */
    readonly registry: Registry;
    /** An application's settings; *transient*: each read gives a new one. */
    readonly config: Config;
    /** Downloads and requests; *transient*: each read gives a new one. */
    readonly http: Http;
    /** Tells a measurement service what is used; *retained*. */
    readonly ga: Analytics;

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
    createWindow(options: CreateWindowOptions): Window | null;

    /** The plug-ins that libraries bring, by their names; `undefined` for a name that there is no plug-in for. */
    [pluginName: string]: any;
  }

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
   * them: fractions are rounded, `'12'` counts as 12 and `true` as -1. What cannot be converted counts as 0.
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
     * Takes a name for the window, and returns whether no other window holds it. An application that shall run only
     * once asks for its name at the start.
     *
     * Every window that asks for a name holds it until it closes or asks for another one, also if it gets `false`; script
     * that keeps the object of a closed window keeps its name, too. So the name stays taken as long as any of them holds
     * it, and the owner that asks for it a second time gets `false` if another window has asked meanwhile. All programs
     * of the desktop share the names.
     *
     * @returns `false` if another window holds the name, and for an empty one. A name that the system refuses, such as
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
     * Brings up a window that was given the name for which this one was refused, also a hidden or minimized window.
     *
     * A window that has asked for another name since is still found. Of several windows the topmost one is shown.
     *
     * @returns Whether it has shown a window; `false` unless the last {@link isUniqueWindow} of this window was `false`.
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
     * Its outermost pixels size the window then, 7 at the left and the top and 6 at the right and the bottom, unless
     * {@link resize} is `false`. The user drags it by elements that are marked with the attribute `dragWindow`: the
     * nearest element with `true` or `false` decides. Fields and buttons (`input`, `textarea`, `button`) never drag it.
     * A shaped window has no frame for good.
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
     * The smallest width that the window can be sized to, by the user or by script; -1 takes the limit away, 0 is refused
     * with 0x80070057. The window keeps its size until it is next sized.
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
     * Whether the user can size the window: by its frame, or where it has none by the outermost pixels of the page (see
     * {@link caption}). It changes nothing on a shaped window.
     */
    set resize(value: boolean);

    /**
     * Gives the window the size of a picture, a bitmap file, and the shape of all its pixels that are not exactly
     * white (255, 255, 255). A relative path counts from the page, and a `file:` URL is taken too.
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
     * and only by that. A double click on the caption restores without it.
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
     * @throws 0x80004001 without a function, 0x80070057 if it is `null` or no object, or the name is no string.
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
     * @throws 0x80004001 without a function, 0x80070057 if it is `null` or no object, or the keys are no string.
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
     * Whether a button was down when the program took its last message. Script that waits for a change in a loop may
     * never see it. By the time that a page hears of a short press, the button may be up again.
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
     *   characters; a longer one is cut. An object that is no function binds, too: files can be dropped, and nothing is
     *   called. Anything else, such as `null`, unbinds the element.
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
     * external.hash.sha1().addData('ab').addData('c').finish();  //= external.hash.sha1().addData('abc').finish()
     */
    sha1(): Digest;

    /**
     * A new digest by MD5.
     *
     * @example
     * external.hash.md5().finish();  //= 'D41D8CD98F00B204E9800998ECF8427E'
     */
    md5(): Digest;

    /**
     * A new digest by MD4.
     *
     * @example
     * external.hash.md4().addData('a').finish();  //= 'BDE52CB31DE33E46245E05FBDBD6FB24'
     */
    md4(): Digest;
  }

  /** A digest under way. */
  interface Digest {
    /**
     * Takes the UTF-8 form of a text.
     *
     * Only the sum of the pieces counts. With no argument, or more than one, nothing happens.
     *
     * @returns The object itself, so calls make a chain.
     * @throws 0x80004005 if it is no string.
     */
    addData(text: string): Digest;
    /**
     * The digest in upper-case hexadecimal digits. It is final: what is added later changes nothing.
     *
     * @throws The system's status if the digest cannot be computed, as where it has switched an algorithm off.
     */
    finish(): string;
  }

  /**
   * The plug-in `file`: questions about files and folders; deleting, copying, moving and listing.
   *
   * Paths count from the page and may be `file:` URLs; only the `path` of {@link File.enumFiles} counts from the
   * current folder. The page stands still until a member is done; {@link File.copyAsync}, {@link File.moveAsync} and
   * {@link File.enumFiles} return at once, and work on threads of their own.
   */
  interface File {
    /**
     * Whether there is a file or a folder.
     *
     * @example
     * external.file.isFileExist('notes.txt');  //= true
     * external.file.isFileExist('no such file');  //= false
     */
    isFileExist(path: string): boolean;

    /**
     * Whether there is a folder.
     *
     * @example
     * external.file.isDir('notes.txt');  //= false
     * external.file.isDir(external.system.expandEnvirPath('%TEMP%'));  //= true
     */
    isDir(path: string): boolean;

    /**
     * `true` only for a folder's full path that ends in `\.`, whatever the folder holds.
     *
     * A plain path gives `false` even for an empty folder. To find out what is in a folder, use
     * {@link File.enumFiles}.
     *
     * @example
     * external.file.mkDir('empty');
     * external.file.isDirEmpty('empty');  //= false
     * external.file.isDirEmpty(external.system.expandEnvirPath('%TEMP%\\.'));  //= true
     * external.file.deleteFile('empty');
     */
    isDirEmpty(path: string): boolean;

    /**
     * The size of a file in bytes. It is a number of 64 bits, which old engines hand on but cannot calculate with.
     *
     * @returns `undefined` for a folder, and if the file cannot be opened for reading.
     *
     * @example
     * external.file.getSize('notes.txt');  //= 13
     * external.file.getSize('no such file');  //= undefined
     */
    getSize(path: string): number | undefined;

    /**
     * Makes a folder, one level. `false` if it is there already.
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
     * Contents that cannot be deleted stay. A link to a folder goes without what it leads to.
     *
     * @param delayed - `true` leaves it to the system, which does it at its next start.
     * @returns `true` also if there is nothing to delete.
     *
     * @example
     * external.file.copy('notes.txt', 'old.txt');
     * external.file.deleteFile('old.txt');  //= true
     * external.file.isFileExist('old.txt');  //= false
     * function deleteLater(path) { return external.file.deleteFile(path, true); }
     */
    deleteFile(path: string, delayed?: boolean): boolean;

    /**
     * Copies by the system's shell, without a question.
     *
     * It goes into `dest` if that is a folder, replaces files and takes names with `*`. Paths have fewer than 260
     * characters.
     *
     * @example
     * external.file.copy('notes.txt', 'copy.txt');  //= true
     * external.file.getSize('copy.txt') === external.file.getSize('notes.txt');  //= true
     * external.file.deleteFile('copy.txt');
     */
    copy(src: string, dest: string): boolean;

    /**
     * Copies a file, or a folder with its contents, on a thread of its own.
     *
     * A copy needs the folder above `destPath`, and takes along what a link to a folder leads to. What was copied
     * stays, whatever ends the run.
     *
     * @returns Whether the run has started. If not, `fail` has been called.
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
     * Moves by the system's shell, as {@link File.copy} copies. It renames, too.
     *
     * @example
     * external.file.copy('notes.txt', 'before.txt');
     * external.file.move('before.txt', 'after.txt');  //= true
     * external.file.isFileExist('before.txt');  //= false
     * external.file.deleteFile('after.txt');
     */
    move(src: string, dest: string): boolean;

    /**
     * Moves a file, or a folder with its contents, on a thread of its own.
     *
     * A move within a drive is one step: it tells no progress, and replaces a file if it is asked to, but never a
     * folder. A move from drive to drive makes the folder above `destPath`, and refuses a tree that has a link to a
     * folder in it, before anything is moved. What was moved stays so, whatever ends the run.
     *
     * @returns Whether the run has started. If not, `fail` has been called.
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
     * Lists a folder, on a thread of its own. The options are read there, so the object stays as it is until the end.
     * {@link EnumFilesOptions.filter} describes the language of filters.
     *
     * @throws 0x80070057 if there is no option object.
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
   * What {@link File.copyAsync} and {@link File.moveAsync} are given.
   *
   * A run that `progress` ends calls neither `success` nor `fail`.
   *
   * The `code` of `fail` is a status as a number with a sign:
   *
   * - 0x80070057: a path is missing;
   * - 0x80070002: there is no `srcPath`;
   * - 0x80070050, 0x800700b7: a file is there already, as a copy and as a move says it;
   * - 0x80070020: a file is in use;
   * - 0x80070032: a move found a link;
   * - 0x80004005, 0x80070003: a file is where a folder should be, as a copy and as a move says it;
   * - others 0x8007....: the low half is the system's error.
   */
  interface FileTransferOptions {
    /** The file or folder. */
    srcPath: string;
    /** Its new name: `a\b` copied to `c\d` gives `c\d\...`. */
    destPath: string;
    /** `true` replaces files; without it a file that is there ends the run. */
    replaceExisting?: boolean;
    /**
     * Is told the bytes of all files, those done and the sum. `false` or an error ends the run, and so does leaving the
     * page.
     */
    progress?(processed: number, total: number, context: any): boolean | void;
    /** Is called at the end of a run that did all. */
    success?(context: any): void;
    /** Is called at the end of a run that failed. */
    fail?(code: number, context: any): void;
    /** Is handed to the functions. */
    context?: any;
  }

  /** What {@link File.enumFiles} is given. Both functions are needed; without one nothing happens. */
  interface EnumFilesOptions {
    /** The folder; a relative one counts from the current folder. */
    path: string;
    /** `false` leaves out what is in its folders. */
    recursive?: boolean;
    /**
     * An expression that is searched for in each path, from `path` on, with the case of letters: `\.txt$` lets texts
     * pass. A text that is no expression lets everything pass.
     *
     * A match may begin anywhere in the path. In a string of script each backslash is written twice. The language is one
     * of its own:
     *
     * - `.` is any character, `[a-z_]` one of a set, `[^a-z_]` one that is not in it.
     * - `(...)` is a group, `{...}` one that is captured, too. `\0` to `\9` are what the first to the tenth `{...}`
     *   captured.
     * - `a|b` is either of the two. What stands before a `*` may be there any number of times, before a `+` once or more,
     *   before a `?` once or not at all.
     * - `!` before a character, set or group matches where the path does not go on with it. It takes no character itself,
     *   so `!.` is the end of the path.
     * - `^` as the first character is the start of the path, `$` as the last one its end. Elsewhere they are plain.
     * - `\a` is a letter or digit, `\b` a blank or tab, `\c` a letter, `\d` a digit, `\h` a hexadecimal digit, `\n` a
     *   line end, `\q` a quoted text, `\w` one or more letters, `\z` one or more digits. In a set they are their
     *   characters; `\q` is no expression there.
     * - A backslash makes any other character plain. Braces in names need one, too: `\{1\}`.
     *
     * So an exclusion is written from the start on: `^!(.*\.tmp)` leaves out paths with `.tmp` in them, `^!(.*\.tmp!.)`
     * those that end with it.
     */
    filter?: string;
    /**
     * Is called for each file and folder, for folders after what is in them.
     *
     * `false` ends the listing; an error does not.
     *
     * @param attributes - The system's: 16 a folder, 1 read-only, 2 hidden, and others, added up.
     * @param size - Bytes; 0 for a folder.
     */
    callback(path: string, attributes: number, size: number): boolean | void;
    /** Is called at the end, in any case, also if there is no such folder. */
    completed(): void;
  }

  /**
   * The plug-in `fileIO`: one open file. Its bytes go to objects of {@link Stream} and come from them.
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
     * Closes the file that is open and opens another. Others may read and write it meanwhile.
     *
     * @param path - A relative path counts from the page, and a `file:` URL is a path.
     * @param mode - A word of letters: `r` to read and `w` to write; `e` for a file that must be there (which holds
     *   without a letter), `n` for one that must not, `o` for either, and `c` to empty it or make it. Of several such
     *   letters the last one holds.
     * @returns Whether that worked.
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
     * Moves bytes from the file to where the stream stands.
     *
     * @param length - How many bytes; -1 asks for all there is, up to 4 GiB.
     * @returns How many bytes that were, also if it stopped early.
     * @throws 0x80070057 if the length is 0 or more than 2147483647, or there is no stream.
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
     * Moves bytes from where the stream stands to the file.
     *
     * @param length - How many bytes; -1 asks for all there is, up to 4 GiB.
     * @returns How many bytes that were, also if it stopped early.
     * @throws 0x80070057 if the length is 0 or more than 2147483647, or there is no stream.
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
     * Reads on a thread of its own, and tells each piece.
     *
     * To close the file meanwhile makes the run fail with 0x80070006; to drop the object does not. All runs on one
     * object share one position.
     *
     * @returns Whether the run has started. If not, `fail` has been called: with 0x80070057 if there is no `len` of
     *   the right kind, or a `src`.
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
     * Writes on a thread of its own.
     *
     * A `len` beyond what `src` has writes a last piece that is filled up, with bytes of no meaning. To close the file
     * meanwhile makes the run fail with 0x80070006; to drop the object does not. All runs on one object share one
     * position.
     *
     * @returns Whether the run has started. If not, `fail` has been called: with 0x80070057 if there is no `len` of
     *   the right kind, or no `src`.
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
     * Moves the position. It may lie beyond the end.
     *
     * @param offset - A whole number, which may be negative.
     * @param origin - {@link FileIO.BEGIN}, {@link FileIO.CURRENT} or {@link FileIO.END}.
     * @returns The new position; `undefined` if that failed.
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
     * The size of the file in bytes. The position stays when it is written, unless that fails, which is not told.
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

    /** For {@link FileIO.seek}: from the begin. */
    readonly BEGIN: 0;
    /** For {@link FileIO.seek}: from where the file stands. */
    readonly CURRENT: 1;
    /** For {@link FileIO.seek}: from the end. */
    readonly END: 2;

    /**
     * No failure.
     *
     * @example
     * external.fileIO.S_OK;  //= 0
     */
    readonly S_OK: 0;

    /**
     * The status 0x80004004, as a number to compare with.
     *
     * @example
     * external.fileIO.E_ABORT;  //= -2147467260
     */
    readonly E_ABORT: -2147467260;
  }

  /** What {@link FileIO.readAsync} is given. */
  interface ReadAsyncOptions {
    /**
     * How many bytes: an unsigned whole number of 32 bits.
     *
     * JavaScript's plain numbers are of another type and are refused. On the page control, `BigInt(n)` makes an unsigned
     * number. The old engine has no BigInt, but keeps the type of a number that a member returns: there, `len` comes
     * from {@link Stream.readUInt32}. On both engines, {@link FileIO.read} takes plain numbers.
     */
    len: number | bigint;
    /**
     * Is called for each piece of at most 65536 bytes. `false` ends the run with no further call.
     *
     * @param chunk - A new stream with that piece, at its begin.
     */
    progress?(chunk: Stream, context: any): boolean | void;
    /** Is called at the end, also when the file was shorter than `len`. */
    success?(context: any): void;
    /** Is called at the end of a run that failed. An error in `progress` is a failure, too. */
    fail?(code: number, context: any): void;
    /** Is handed to the functions. */
    context?: any;
  }

  /** What {@link FileIO.writeAsync} is given. */
  interface WriteAsyncOptions {
    /** Where the bytes come from. The page leaves it alone until the end. */
    src: Stream;
    /**
     * How many bytes: a number of the type of {@link ReadAsyncOptions.len}.
     *
     * On both engines, {@link FileIO.write} takes plain numbers.
     */
    len: number | bigint;
    /** Is called for each piece of at most 65536 bytes. `false` ends the run with no further call. */
    progress?(context: any): boolean | void;
    /** Is called at the end, also when the stream was shorter than `len`. */
    success?(context: any): void;
    /** Is called at the end of a run that failed. An error in `progress` is a failure, too. */
    fail?(code: number, context: any): void;
    /** Is handed to the functions. */
    context?: any;
  }

  /** How a text becomes bytes: UTF-8, UTF-16, or the system's code page. The case of letters does not count. */
  type Encoding = 'utf8' | 'unicode' | 'ansi';

  /**
   * The plug-in `stream`: a block of bytes with a position, which grows as it is written.
   *
   * Each read of `window.external.stream` gives a new, empty one.
   *
   * Other plug-ins take such an object, or hand one over, where bytes are meant; leave it alone while one works on it.
   * Numbers are little-endian. Counts and lengths are bytes; -1 means all, as without one, and a 0 throws 0x80070057.
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
     * Writes the next bytes to another stream, at that one's position. The position here stays.
     *
     * @param count - How many bytes; all without it.
     * @returns How many bytes that were.
     * @throws 0x80004002 if the target is no stream, 0x8007000E if there is not enough memory.
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
     * Moves the position. It may lead beyond the end, and a write there fills the gap with zeros.
     *
     * @param offset - Not negative.
     * @param origin - {@link Stream.BEGIN}, {@link Stream.CURRENT} or {@link Stream.END}.
     * @returns The new position.
     * @throws 0x80070057 if the offset is negative, or there is no such origin.
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
     * Cuts the content, or adds zeros to it. The position stays.
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
     * The number of bytes. It is a number of 64 bits, which old engines hand on but cannot calculate with.
     *
     * @example
     * external.stream.getSize();  //= 0
     */
    getSize(): number;

    /**
     * The byte at the position, which moves on.
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
     * The number of 16 bits at the position, which moves on.
     *
     * @returns `null` if the end comes before; then the position stays.
     */
    readUInt16(): number | null;

    /**
     * Writes the low 16 bits of a number.
     *
     * @returns `false` if there is not enough memory.
     */
    writeUInt16(value: number): boolean;

    /**
     * The number of 32 bits at the position, which moves on.
     *
     * @returns `null` if the end comes before; then the position stays.
     */
    readUInt32(): number | null;

    /**
     * Writes a number of 32 bits. A negative one is read back as the unsigned number of the same bits.
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
     * The whole number of 64 bits at the position, which moves on. Above 2^53 it is rounded.
     *
     * @returns `null` if the end comes before; then the position stays.
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
     * So {@link Stream.readUInt64} does not give it back; that is intended.
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
     * The text of the next bytes.
     *
     * Zeros at the end of these bytes are left out, and the position does not move over them; zeros in between are
     * part of the text.
     *
     * @param encoding - `utf8` without it.
     * @param length - How many bytes; all without it.
     * @returns `null` at the end.
     * @throws 0x80070057 if there is no such encoding.
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
     * Writes a text. Whoever writes several in a row notes their lengths, to read them back.
     *
     * @param encoding - `utf8` without it. `unicode` and `ansi` write a zero behind the text, `utf8` does not.
     * @returns The number of bytes.
     * @throws 0x80070057 if there is no such encoding, 0x8007000E if there is not enough memory.
     *
     * @example
     * external.stream.writeString('Käse');  //= 5
     * external.stream.writeString('Käse', 'unicode');  //= 10
     */
    writeString(text: string, encoding?: Encoding): number;

    /**
     * Sets the next bytes of the content to a value. It never makes the stream longer.
     *
     * @param value - Up to 255; more throws 0x80070057.
     * @param count - How many bytes; all up to the end without it.
     * @returns How many bytes that were.
     *
     * @example
     * var bytes = external.stream;
     * bytes.setSize(10);
     * bytes.fill(32, 4);  //= 4
     * bytes.fill(33);  //= 6
     */
    fill(value: number, count?: number): number;

    /** For {@link Stream.seek}: from the begin. */
    readonly BEGIN: 0;
    /** For {@link Stream.seek}: from the position. */
    readonly CURRENT: 1;
    /** For {@link Stream.seek}: from the end. */
    readonly END: 2;
  }

  /**
   * The plug-in `minizip`: ZIP archives.
   *
   * Each run is on a thread of its own, and as many as are wanted go side by side.
   *
   * The options are read there, so the option object stays as it is until the end. Relative paths count from the
   * current folder.
   */
  interface MiniZip {
    /**
     * Unpacks an archive, and returns at once.
     *
     * Exactly one of `success` and `fail` is called at the end. After a failure, what was unpacked stays, except in a
     * `dest` that the run itself had made: that is removed.
     *
     * - Nothing is written outside `dest`. A member with a refused name ends the run, unless `progress` returns `0` for
     *   it. Refused are a path that would leave `dest`, an empty name, a colon or a NUL in it, and the names of devices,
     *   such as `con` and `aux.txt`. The same holds for a member whose entry in the archive's directory is broken.
     * - Names that are not marked as UTF-8 are read in the ANSI code page of the system. Many programs write them in an
     *   OEM code page instead, such as 437: letters outside ASCII come out as other letters.
     * - An empty member that has the name of a folder in the archive is that folder, also without the slash at its end.
     * - Archives of more than 65,535 members or 4 GiB, and others whose directory has the format Zip64, are not read.
     *
     * @throws 0x80070057 if there is no option object.
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
     * Unpacks an archive that lies in memory.
     *
     * It is read where it is, by its address: a plug-in library makes the option object, and keeps the memory until
     * the end.
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
     * Packs files and folders, and returns at once.
     *
     * Exactly one of `success` and `fail` is called at the end. After a failure the new file is removed, also where it
     * had replaced one; a stream keeps what was written so far.
     *
     * - Names in the archive count from the folder in `src`, which has no entry of its own. A folder below it has one,
     *   behind its contents. So an empty folder gives an empty archive.
     * - A file named in `src` itself has its own name in the archive.
     * - A folder is named without a backslash at its end: with one, the names directly below it lose their first
     *   letter, and names of one letter end the run.
     * - A file that vanishes while others are packed becomes an empty entry with its name and a slash.
     * - Two files of the same name that are listed in `src` are both packed, under that one name. `unzip` then finds the
     *   second file there already: that ends its run, or replaces the first file with `overWrite`.
     * - `dest` may lie in a folder of `src`: the archive leaves itself out.
     * - A file that grows while it is read is packed up to the size that it had at first.
     * - An archive has at most 65,535 entries, and no name with a colon in it. It and each file stay below 4 GiB.
     *
     * @throws 0x80070057 if there is no option object.
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

  /** What both forms of {@link MiniZip.unzip} are given. */
  interface UnzipRunOptions {
    /** The folder to unpack into; it is made if it is missing. */
    dest: string;
    /** `true` replaces files; without it a file that is there ends the run. */
    overWrite?: boolean;
    /**
     * Is told how the run goes on, and steers it.
     *
     * It is called before each member with its name alone, and with each piece written.
     * `false` ends the run; `0` before a member leaves it out, also one that would end the run. An error counts as no
     * answer.
     *
     * @param name - The member's name in the archive.
     * @param total - Bytes of all members, 4294967295 at most; missing before a member, as are the others.
     * @param processed - Bytes that were written.
     */
    progress?(name: string, total?: number, processed?: number, context?: any): boolean | number | void;
    /** Is called at the end of a run that did all. */
    success?(context: any): void;
    /** Is handed to the functions. */
    context?: any;
  }

  /**
   * What {@link MiniZip.unzip} is given to unpack a file.
   *
   * The `code` of `fail` is a status as a number with a sign:
   *
   * - 0x80070002 and others 0x8007....: a file could not be opened or made; the low half is the system's error;
   * - 0x80070050: a file is there already;
   * - 0x800700B7: a file is in the place of a folder or a folder in the place of a file, of this archive or from before;
   * - 0x80070057: `dest` is missing;
   * - 0x80004004: `progress` ended the run before a member;
   * - 0x80004005: anything else: no archive or a broken one, a member with a refused name, a full disk, an end by
   *   `progress` within a member.
   */
  interface UnzipOptions extends UnzipRunOptions {
    /** The file that holds the archive, at its end: a ZIP file, or any file with archives attached. */
    src: string;
    /** Which archive of the file, counted from the end: a whole number; 0, the last, without it. */
    index?: number;
    /** Is called at the end of a run that failed. The order of the arguments differs from that of other members. */
    fail?(context: any, code: number): void;
  }

  /**
   * What {@link MiniZip.unzip} is given to unpack memory.
   *
   * The codes are those of {@link UnzipOptions}; 0x80070057 says also that no memory can be read at `buffer`.
   */
  interface UnzipMemoryOptions extends UnzipRunOptions {
    /** There is none. */
    src?: undefined;
    /** The address: a whole number of 64 bits. Script has no such numbers, so a plug-in library puts it here. */
    buffer: any;
    /** The size in bytes, likewise. */
    length: any;
    /** Is called at the end of a run that failed. */
    fail?(none: null, context: any, code: number): void;
  }

  /**
   * What {@link MiniZip.zip} is given.
   *
   * The `code` of `fail` is a status as a number with a sign:
   *
   * - 0x80070050: the archive is there already;
   * - other 0x8007....: `dest` could not be made, or a file or folder named in `src` could not be opened; the low half
   *   is the system's error;
   * - 0x80004005: anything else: a path of `src` that leads nowhere, a file that cannot be read or shrinks while it is
   *   read, a full disk, a `dest` of another kind, an end by `progress`.
   */
  interface ZipOptions {
    /** Files and folders, in the order of the archive. */
    src: string | string[];
    /**
     * The archive's path, or a stream.
     *
     * A stream takes the archive from its begin on, and is left alone by the page until the end is told. One that was
     * longer than the archive keeps its end.
     */
    dest: string | Stream;
    /** `true` replaces the file `dest`; without it a file that is there ends the run. */
    overWrite?: boolean;
    /**
     * Is called after each write to the archive. `false` ends the run.
     *
     * @param path - The file or folder at hand; `''` for an archive without entries.
     * @param total - The bytes of all files. It and `processed` are numbers of 64 bits, which old engines hand on but
     *   cannot calculate with.
     * @param processed - Always 0.
     */
    progress?(path: string, total: number, processed: number, context: any): boolean | void;
    /** Is called at the end of a run that did all. */
    success?(context: any): void;
    /**
     * Is called at the end of a run that failed. The order of the arguments is the other way round than in `unzip`.
     */
    fail?(code: number, context: any): void;
    /** Is handed to the functions. */
    context?: any;
  }

  /**
   * The plug-in `system`: command line, environment, programs, shortcuts and the power.
   *
   * Paths count from the page, but that of {@link System.parseShortcut} is a full one. The power is changed without a
   * question: that is the page's.
   *
   * The plug-in sets variables of the environment to the user's folders, at its first use: `DESKTOP`, `STARTMENU`,
   * `STARTUP`, `PROGRAMS`, the same four for all users (`COMMON_DESKTOP` and so on), `SENDTO`, `MYDOCUMENTS`, and
   * `LOCALAPPDATA` where it is missing. Programs that are started have them, too.
   */
  interface System {
    /**
     * Ends the session and starts the system again.
     *
     * @returns Whether that has begun.
     *
     * @example
     * function onRestartButton() {
     *   if (!external.system.reboot()) alert('The system does not restart.');
     * }
     */
    reboot(): boolean;

    /**
     * Ends the session and the system.
     *
     * @returns Whether that has begun.
     *
     * @example
     * function onOffButton() {
     *   if (!external.system.shutdown()) alert('The system does not end.');
     * }
     */
    shutdown(): boolean;

    /**
     * Puts the system to sleep, to its disk. The name is meant so.
     *
     * @returns Whether that was done.
     *
     * @example
     * function onSleepButton(deeply) {
     *   return deeply ? external.system.hiberhates() : external.system.suspended();
     * }
     */
    hiberhates(): boolean;

    /**
     * Puts the system to sleep, in its memory. The name is meant so.
     *
     * @returns Whether that was done.
     */
    suspended(): boolean;

    /**
     * Switches the monitor off.
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
     * @returns Whether it is being locked.
     */
    lockWorkStation(): boolean;

    /**
     * Throws, whatever it is given: the script goes no further.
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
     * @returns With `exitCallback`: whether it was started. Without, the other way round: `false` if it was started,
     *   `true` if not, also where the user refuses; an empty `path` gives `false`, too. Scripts rely on it.
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
     * Makes a shortcut. The program that it leads to will start in its own folder.
     *
     * @returns Whether it was saved; `false` for `dest` and `desktop` at once, and for neither of them.
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
     * Tells what a shortcut leads to.
     *
     * @param path - A full path.
     * @returns `null` for what is no shortcut to a file.
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
     * A variable of the environment.
     *
     * @returns `null` if there is none, or it is empty; `''` for a value of 520 characters or more.
     *
     * @example
     * external.system.getEnvirVar('NO SUCH VARIABLE');  //= null
     * external.file.isDir(external.system.getEnvirVar('MYDOCUMENTS'));  //= true
     */
    getEnvirVar(name: string): string | null;

    /**
     * A text with the value for each `%name%`; unknown ones stay.
     *
     * @returns `''` where that is 520 characters or more, `null` if the system fails.
     *
     * @example
     * var folder = external.system.getEnvirVar('DESKTOP');
     * external.system.expandEnvirPath('%DESKTOP%\\a.txt') === folder + '\\a.txt';  //= true
     * external.system.expandEnvirPath('%NO SUCH%');  //= '%NO SUCH%'
     */
    expandEnvirPath(text: string): string | null;

    /**
     * Clicks the entry of a file's menu that pins it to the task bar.
     *
     * @returns `false` where the menu has no such entry, as in newer systems.
     *
     * @example
     * external.system.pinToTaskbar('no such.exe');  //= false
     * function onPinButton(program) {
     *   if (!external.system.pinToTaskbar(program)) alert('Please pin it by hand.');
     * }
     */
    pinToTaskbar(path: string): boolean;

    /**
     * Clicks the entry of a file's menu that takes it from the task bar.
     *
     * @returns `false` where the menu has no such entry, as in newer systems.
     *
     * @example
     * external.system.unpinFromTaskbar('no such.exe');  //= false
     */
    unpinFromTaskbar(path: string): boolean;

    /**
     * Loads a library, has it enter itself in the registry, and frees it.
     *
     * Most libraries need an administrator's rights for it.
     *
     * @returns Whether it answered exactly 0.
     *
     * @example
     * external.system.registerDll('no such.dll');  //= false
     * function install(library) {
     *   if (!external.system.registerDll(library)) alert('It needs an administrator.');
     * }
     */
    registerDll(path: string): boolean;

    /**
     * Loads a library, has it take itself out of the registry, and frees it.
     *
     * Most libraries need an administrator's rights for it.
     *
     * @returns Whether it answered exactly 0.
     *
     * @example
     * external.system.unregisterDll('no such.dll');  //= false
     */
    unregisterDll(path: string): boolean;

    /**
     * Whether the program has an administrator's rights.
     *
     * To write `true` starts the program again, with a question to the user for these rights, and ends this one, also
     * when the user refuses; the line throws 0x80004004. Nothing happens if it has these rights already, nor by
     * `false`. The new one gets the same command line, but without its quotes: an argument with a blank in it arrives
     * as two.
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
     * The system's language and country, like `en-US`; `undefined` if the system does not say.
     *
     * @example
     * /^[a-z]+-/.test(external.system.systemLanguage);  //= true
     */
    readonly systemLanguage: string | undefined;

    /**
     * The user's language and country, like `en-US`; `undefined` if the system does not say.
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
     * `false` for a 64-bit program on a 64-bit system, because the system only tells 32-bit programs that it has more.
     *
     * @example
     * external.system.isX64System;  //= false
     */
    readonly isX64System: boolean;
  }

  /** What {@link System.shellExecute} is given. */
  interface ShellExecuteOptions {
    /** A file, a program by its full path or counting from the page, or an address. */
    path: string;
    /** What the program is given, as it stands: quotes around arguments with blanks are the page's. */
    args?: string;
    /** The folder that it starts in. */
    workDir?: string;
    /** `true` asks the user for an administrator's rights, if the program has not got them. */
    requestAdmin?: boolean;
    /**
     * Is called when the program has ended; nothing else ends the wait.
     *
     * It is not called if a program that was running has taken the file or address over. With this option, the system
     * may tell the user why something was not started, and the call waits for that; there is no word to the user who
     * has refused the rights.
     *
     * @param code - The program's exit code.
     */
    exitCallback?(code: number, context: any): void;
    /** Is handed to the function. */
    context?: any;
  }

  /** What {@link System.createShortcut} is given. */
  interface CreateShortcutOptions {
    /** What it leads to: a file or an address. */
    src: string;
    /** Arguments for a program. */
    arg?: string;
    /** The shortcut's own path. `.lnk`, or `.url` for an address, is put behind if it is not there. */
    dest?: string;
    /** `true` puts it on the desktop, in place of `dest`. */
    desktop?: boolean;
    /**
     * Its name on the desktop.
     *
     * Without it, a file lends its own, with its extension: `b.exe` gives `b.exe.lnk`. An address needs one, and `n`
     * gives `n.lnk.url`.
     */
    destName?: string;
    /** A file with icons. */
    icon?: string;
    /** Which of the icons in `icon`: a whole number; 0 without it. Without `icon` it has no effect. */
    iconIndex?: number;
  }

  /** What {@link System.parseShortcut} answers. */
  interface ParsedShortcut {
    /** The file that the shortcut leads to. */
    path: string;
    /** The arguments for it. */
    args: string;
  }

  /**
   * The command line of the program. Names ignore the case of letters, and one `-` or `/` before them.
   *
   * @example
   * var args = external.system.cmdArgs, all = [];
   * for (var i = 0; i < args.getOrgArgsCount(); i++) all.push(args.getOrgArg(i));
   * all.length > 0;  //= true
   * args.isSwitchExist('no such switch');  //= false
   * args.getArgPair('no such key');  //= null
   */
  interface CommandLine {
    /** The number of arguments, the program included. */
    getOrgArgsCount(): number;

    /**
     * One of the arguments; the program is at 0.
     *
     * @returns `null` outside.
     */
    getOrgArg(index: number): string | null;

    /** Whether there is such a switch: `-s`, `/s` or a bare word. */
    isSwitchExist(name: string): boolean;

    /**
     * The value of a pair: `-key value`, `/key value` or `key=value`. Behind a `=` it has up to 99 characters.
     *
     * @returns `null` if there is none.
     */
    getArgPair(name: string): string | null;
  }

  /**
   * The plug-in `registry`: the system's registry.
   *
   * A path begins with `HKEY_CLASSES_ROOT`, `HKEY_CURRENT_CONFIG`, `HKEY_CURRENT_USER`, `HKEY_LOCAL_MACHINE` or
   * `HKEY_USERS`, in letters of any case, and whatever character follows that name is taken for its backslash. What
   * stands behind the last backslash is the name of a value, or of the key to delete. A path that ends in a backslash
   * means the key's default value. Names with zeros in them are refused.
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
     * Makes a key, and those above it.
     *
     * @returns `true` also if it is there.
     */
    createKey(path: string): boolean;

    /**
     * Deletes a key with all that is below it.
     *
     * Where something cannot be deleted it stops, and what is gone by then stays gone.
     *
     * @returns Whether all of it was deleted; `false` also if there is no such key, for a path that ends in a backslash,
     *   and for a root alone.
     */
    deleteKey(path: string): boolean;

    /**
     * Writes a value into a key that is there. What it is stored as depends on its kind:
     *
     * - a whole number of 32 bits as `REG_DWORD`;
     * - another number as `REG_QWORD`, its whole part; beyond 64 bits it is refused;
     * - a boolean as `REG_DWORD`, 1 or 0;
     * - a string as `REG_SZ`;
     * - anything else is refused.
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
     * @returns `false` also if there is none.
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
     * A value: a string for `REG_SZ` and `REG_EXPAND_SZ`, a number for `REG_DWORD` and `REG_QWORD`.
     *
     * Numbers are unsigned: -1 reads back as 4294967295. Above 2^53 they are rounded. Strings have no zeros at their
     * end, and those of `REG_EXPAND_SZ` keep their references like `%TEMP%` as they stand.
     *
     * @returns `null` if there is no such value, or one of another kind.
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

    /** Whether there is a key that may be read. */
    isKeyExist(path: string): boolean;

    /** Whether there is a value, of whatever kind. */
    isValueExist(path: string): boolean;

    /**
     * Which half of the registry of a 64-bit system is meant.
     *
     * It belongs to this object, and the next read of `window.external.registry` gives one in `default`. The case of
     * letters does not count.
     *
     * @throws 0x80070057 if another word is written.
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
   * Each read of `window.external.config` gives an object of its own, which is told by {@link Config.init} where the
   * settings are; the number of arguments of the other members must fit that. Before `init`, and in the form of the
   * other store, members answer `false` or `null`.
   *
   * In the registry, below `HKEY_CURRENT_USER\Software`:
   *
   * - Names may have backslashes, though not as the first or last character: `a\b` is the value `b` in the key `a`.
   *   Keys are made when they are needed.
   * - Values are strings and whole numbers of 32 bits, and nothing else: booleans and fractions are refused. Numbers
   *   read as unsigned.
   * - An object keeps its key open from the first use to `clear`. A second `init` with another name changes only what
   *   the next `clear` clears and where values go after it. An object whose key another one clears writes nothing
   *   until its own `clear`.
   *
   * In a file:
   *
   * - Anything that is or becomes a string can be written, and is read as a string: `true` as `-1`, a fraction as the
   *   user's language writes it. An empty one is read as `undefined`, and a longer one than 10239 characters is cut.
   * - The system leaves out blanks around a text, and quotes around it; to keep blanks, put it into double quotes.
   *   Letters that the system's code page does not have become `?`, unless the file is there already and begins with
   *   the mark of UTF-16.
   * - Sections and keys are not empty, and their case does not count. What stands behind a line break is read as a
   *   line of its own. A key with `=` in it or with `;` or `[` at its begin, and a section with `]`, are written and
   *   not found again.
   * - The file is made when it is first written, its folder is not.
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
     * Chooses where the settings are.
     *
     * @param store - The name of a key below `HKEY_CURRENT_USER\Software`, or the path of an INI file, which counts from
     *   the page and may be a `file:` URL.
     * @param isPath - `true` if it is a path.
     * @returns `false` for an empty one, for one with a zero in it, and for a name that is nothing but backslashes;
     *   then all stays as it was.
     *
     * @example
     * external.config.init('');  //= false
     */
    init(store: string, isPath?: boolean): boolean;

    /**
     * Deletes all settings, or a part of them.
     *
     * @param part - A key with all that is below it, or a section of the file; without it, all the settings: the key,
     *   or the file itself.
     * @returns Whether that was done; `false` for an empty `part`, and for a key and for a file that are not there.
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
     * Writes a setting in the registry.
     *
     * @returns Whether it was written.
     */
    setValue(name: string, value: string | number): boolean;

    /**
     * Writes a setting in the file.
     *
     * @returns Whether it was written.
     */
    setValue(section: string, key: string, value: any): boolean;

    /**
     * Reads a setting in the registry.
     *
     * @returns `null` if it is not there.
     */
    queryValue(name: string): string | number | null;

    /**
     * Reads a setting in the file.
     *
     * @returns `null` if it is not there, `undefined` for an empty one.
     */
    queryValue(section: string, key: string): string | null | undefined;

    /**
     * Deletes a setting in the registry.
     *
     * @returns `true` also if there is nothing to delete.
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
     * Deletes a setting in the file.
     *
     * @returns `true` also if there is nothing to delete.
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
    /** A new client, which downloads to files. */
    createClient(): HttpClient;

    /**
     * A new request object of the system, `Microsoft.XMLHTTP`, for everything else than downloads to files.
     *
     * @returns `undefined` if the system has none.
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

  /** A client that downloads to files. It may do many downloads at once. */
  interface HttpClient {
    /**
     * Stores what an address gives, on a thread of its own.
     *
     * - A download that `progress` ends is silent: neither `success` nor `fail` is called, and its file is removed.
     *   There is no other way to end one.
     * - The server's status code is not looked at: an error page is stored, and `success` called.
     * - The length of the body is what the header `Content-Length` says. Without that header (as with chunked bodies),
     *   and with a length of 0, the download fails; what comes beyond it is not read. Lengths of 2 GiB and more count
     *   as 2147483647 bytes.
     * - Proxies are not used. A server that says nothing for 30 seconds has failed.
     * - A download goes on when its page or its window goes, and nobody is told. It ends with the program, and leaves
     *   a part of the file then. After a failure the file is removed, if it was made; after an error in the last call of
     *   `progress` the whole file stays.
     * - The system may keep a copy of the body in its cache of the internet, which takes room a second time.
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
     * No failure.
     *
     * @example
     * var client = external.http.createClient();
     * client.S_OK;  //= 0
     * client.E_ABORT;  //= -2147467260
     * client.E_ACCESSDENIED;  //= -2147024891
     * client.E_FILENOTFOUND;  //= -2147024894
     */
    readonly S_OK: 0;
    /** The status 0x80004004, to compare a `code` with. */
    readonly E_ABORT: -2147467260;
    /** The status 0x80070005, to compare a `code` with: the file may not be written. */
    readonly E_ACCESSDENIED: -2147024891;
    /** The status 0x80070002, to compare a `code` with: there is no such file. */
    readonly E_FILENOTFOUND: -2147024894;
  }

  /**
   * What {@link HttpClient.downloadToFile} is given.
   *
   * The `code` of `fail` is a status as a number with a sign:
   *
   * - 0x80070057: `url` or `destPath` is missing;
   * - 0x80004005: the length is 0 or no number, or the body ended before it;
   * - 0x80072F76: the server tells no length;
   * - other 0x80072E.. to 0x80072F..: the network's error: 0x80072EE2 it took too long, 0x80072EE7 no such server,
   *   0x80072EFD no connection;
   * - other 0x8007....: the file could not be made or written; the low half is the system's error.
   */
  interface DownloadOptions {
    /** The address, a full one. */
    url: string;
    /**
     * The file; a relative path counts from the page, and a `file:` URL is a path.
     *
     * A file that is there is replaced as soon as the server has answered.
     */
    destPath: string;
    /**
     * Is told the bytes after each piece of at most 65536.
     *
     * `false`, and only that, ends the download; an error lets it fail. In the last call, whose two numbers are equal,
     * the file is complete and closed: it can be used there, and it stays whatever that call does.
     */
    progress?(done: number, total: number, context: any): boolean | void;
    /** Is called at the end of a download that did all. */
    success?(context: any): void;
    /** Is called at the end of a download that failed. An error in `progress` is a failure, too. */
    fail?(code: number, context: any): void;
    /** Is handed to the functions. */
    context?: any;
  }

  /** A request object of the system. These are its usual members; the system tells more about it. */
  interface XmlHttp {
    /** Begins a request. */
    open(method: string, url: string, async?: boolean, user?: string, password?: string): void;
    /** Adds a header to it. */
    setRequestHeader(name: string, value: string): void;
    /** Sends it, and waits for the answer unless it is asynchronous. Throws if there is no connection. */
    send(body?: any): void;
    /** Ends it. */
    abort(): void;
    /** A header of the answer. */
    getResponseHeader(name: string): string;
    /** All headers of the answer, one a line. */
    getAllResponseHeaders(): string;
    /** Is called at each step of an asynchronous request. */
    set onreadystatechange(value: () => void);
    /** How far it is, from 0, not begun, to 4, done. */
    readonly readyState: number;
    /** The server's status code. */
    readonly status: number;
    /** The words to it. */
    readonly statusText: string;
    /** The body of the answer as a text. */
    readonly responseText: string;
    /** The body of the answer as a document. */
    readonly responseXML: any;
  }

  /**
   * The plug-in `ga`: tells a measurement service which screens are seen and what is done there.
   *
   * It speaks version 1 of the public measurement protocol.
   * Each call sends one hit in the background. Script hears nothing of it, and a hit that fails is lost. The service
   * is a setting of the host's build, `TARVIK_ANALYTICS_HOST`; as it comes, nothing is sent to anywhere but the
   * machine itself.
   *
   * The texts should be plain ones: `trackingId` and `version` go out as they stand, and the others are escaped as for
   * the path of a URL, so an `&` in them begins a new field. A text with nothing but characters to escape in it sends
   * nothing. A hit also tells an identifier of the machine, the user's language and the size of the screen.
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
     * Tells of a screen that is seen. An empty text sends nothing.
     *
     * @throws 0x80004005 if it is no string.
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
     * Tells of something that is done. With fewer arguments, or another kind of `category`, nothing happens.
     *
     * @param action - A text, or a whole number. A boolean sends its bits, not a word.
     */
    event(category: string, action: string | number): void;

    /**
     * What all hits of this window tell of the application. Without it, or with an empty `name`, no hit is sent.
     *
     * @throws 0x80004005 if one of them is no string.
     */
    set(trackingId: string, name: string, version: string): void;
  }
}
