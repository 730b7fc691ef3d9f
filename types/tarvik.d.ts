/**
 * What a page finds in the host: `window.external` with its plug-ins, and the globals that are there before its first
 * script runs. This file is the reference: the pages of the reference are made from it, and the tests compare it with
 * the host and run its examples.
 *
 * Beside it stands the library of the browser (`"lib": ["dom", "es5"]`).
 *
 * - A member that is called wrongly throws an {@link Tarvik.StatusError | Error} with a status as its `number`:
 *   0x80004001 for a wrong number of arguments and for a read of a method, 0x80070057 for an argument of the wrong kind.
 *   A member that fails in its work answers `false` or `null`. What differs is told with the member.
 * - Options that are missing or of the wrong kind count as absent, and only `true` and `false` count as booleans.
 * - "Whole number" is one in 32 bits with a sign; others are refused where one is asked for.
 *
 * @packageDocumentation
 */

/** The native powers of a page. A plug-in is read by its name, and the name is exact. */
interface External {
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
   */
  loadPlugin(path: string): boolean;

  /**
   * Opens a further window of the program. It is hidden until its page shows it.
   *
   * @returns The new window's plug-in `window`, or `null` if there is no such page. A relative `url` on a page from a web
   *   server gives no window.
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

/** `window.external[pluginName]`. */
declare function queryModule<Name extends keyof External>(pluginName: Name): External[Name];

/** `window.external.loadPlugin(path)`. */
declare function loadPlugin(path: string): boolean;

/** `window.external.createWindow(options)`. */
declare function createWindow(options: Tarvik.CreateWindowOptions): Tarvik.Window | null;

declare namespace Tarvik {
  /** What members throw. */
  interface StatusError extends Error {
    /** The status, a negative number: -2147467263 is 0x80004001. */
    number: number;
  }

  /**
   * Data that a member gives: it can be read, written and enumerated. It belongs to the host, so `Array.isArray` and the
   * methods of script's own arrays do not apply, but for `push`.
   */
  interface List<Item> {
    length: number;
    [index: number]: Item;
    /** Appends one item. */
    push(item: Item): void;
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
