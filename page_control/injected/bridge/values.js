// Values to the host are JSON. What JSON cannot write is an array that begins with a tag; protocol.h lists them.
const makeEncoders = (records, numberOf, held, intrinsics) => {
  const { is, define, RangeError, isWellFormed, charCodeAt, stringify } = intrinsics;
  const kOverflow = -2147352566;  // DISP_E_OVERFLOW
  let lastNumber = kWindow;

  const encodeText = (text) => {
    if (isWellFormed(text)) return stringify(text);
    let units = '';
    for (let i = 0; i < text.length; ++i) units += (i ? ',' : '') + charCodeAt(text, i);
    return '["s",[' + units + ']]';
  };

  const encodeObject = (object) => {
    const record = records.get(object);
    if (record) return '["o",' + record.id + ']';
    if (object === window) return '["f",' + kWindow + ',false]';
    let number = numberOf.get(object);
    const entry = number && held.get(number);
    if (entry) {
      ++entry.count;
    } else {
      number = ++lastNumber;
      numberOf.set(object, number);
      held.set(number, { object, count: 1 });
    }
    return '["f",' + number + ',' + (typeof object === 'function') + ']';
  };

  const encodeNumber = (value) => {
    if (is(value, -0)) return '["n","-0"]';
    return value - value === 0 ? '' + value : '["n","' + value + '"]';
  };

  const isEncodable = (value) =>
    typeof value !== 'bigint' || (value >= -0x8000000000000000n && value <= 0xFFFFFFFFFFFFFFFFn);

  const requireEncodable = (value) => {
    if (isEncodable(value)) return;
    const error = new RangeError('A BigInt of more than 64 bits cannot be passed to native code.');
    define(error, 'number', kOverflow);
    throw error;
  };

  const encodeBigInt = (value) => {
    requireEncodable(value);
    return '["i",' + value + ']';
  };

  const encode = (value) => {
    switch (typeof value) {
      case 'string': return encodeText(value);
      case 'boolean': return value ? 'true' : 'false';
      case 'number': return encodeNumber(value);
      case 'bigint': return encodeBigInt(value);
      case 'object': return value === null ? 'null' : encodeObject(value);
      case 'function': return encodeObject(value);
      default: return '["u"]';
    }
  };

  // Checks all values before it counts any reference: a call that is never posted could not release them.
  const encodeAll = (values) => {
    for (let i = 0; i < values.length; ++i) requireEncodable(values[i]);
    let text = '';
    for (let i = 0; i < values.length; ++i) text += (i ? ',' : '') + encode(values[i]);
    return '[' + text + ']';
  };

  return { encodeText, encode, encodeAll, isEncodable };
};

// Values from the host are JavaScript. Objects are arrays that begin with a tag.
const makeDecoders = (nativeObject, held, { Date, define }) => {
  const decode = (value) => {
    if (typeof value !== 'object' || value === null) return value;
    switch (value[0]) {
      case 'o': return nativeObject(value[1], value[2]);
      case 'f': return value[1] === kWindow ? window : held.get(value[1])?.object;
      case 'd': return new Date(value[1]);
      case 'a': return decodeAll(value[1]);
      default: return undefined;
    }
  };

  const decodeAll = (values) => {
    const decoded = [];
    for (let i = 0; i < values.length; ++i) define(decoded, i, decode(values[i]));
    return decoded;
  };

  return { decode, decodeAll };
};
