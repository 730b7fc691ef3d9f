// The page of EngineClipboard. `parts` are those of the formats that write() takes, in base64.
let parts = {};
const add = (format, part) => (parts[format] ??= []).push(part);

const toBase64 = (blob) => new Promise((resolve) => {
  const reader = new FileReader();
  reader.onload = () => resolve(reader.result.split(',')[1]);
  reader.readAsDataURL(blob);
});

const read = async () => {
  const content = { text: '', html: '', png: '' };
  for (const item of await navigator.clipboard.read({ unsanitized: ['text/html'] })) {
    const take = async (type, convert) => item.types.includes(type) ? convert(await item.getType(type)) : '';
    content.text ||= await take('text/plain', (blob) => blob.text());
    content.html ||= await take('text/html', (blob) => blob.text());
    content.png ||= await take('image/png', toBase64);
  }
  return content;
};

const write = async () => {
  const formats = {};
  for (const type of ['text/plain', 'text/html', 'image/png'])
    if (parts[type]) formats[type] = await (await fetch(`data:${type};base64,${parts[type].join('')}`)).blob();
  const put = (items) => navigator.clipboard.write([new ClipboardItem(items)]);
  const { 'image/png': picture, ...texts } = formats;
  const withText = { 'text/plain': '', ...texts };
  try {
    await put(picture ? formats : texts['text/html'] ? texts : withText);
  } catch (error) {
    // The engine rejects damaged pictures.
    if (!picture) throw error;
    await put(withText);
  }
  return true;
};
