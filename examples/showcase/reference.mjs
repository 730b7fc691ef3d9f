// reference.mjs FILE: generates the showcase's reference from types/tarvik.d.ts, as a script that sets
// Showcase.reference.
import { writeFileSync } from 'node:fs';
import MarkdownIt from 'markdown-it';
import { readDeclarations, writeStatements } from '../../types/declarations.mjs';

const markdown = new MarkdownIt();
const { host, interfaces, globals } = readDeclarations();

// The reference has no link targets, so only the label of a link remains.
function html(text) {
  const plain = text.replace(/\{@link ([^}|]*?)\s*(?:\|\s*([^}]*?)\s*)?\}/g, (_, target, label) => label ?? `\`${target}\``);
  return markdown.render(plain).trim();
}

const htmlLine = (text) => html(text).replace(/^<p>|<\/p>$/g, '');

function firstSentence(text) {
  return htmlLine(/^[\s\S]*?(\.(?=\s|$)|:(?=\n\n))/.exec(text)?.[0] ?? text);
}

function detailsOf({ text, param = [], returns = [], throws = [] }) {
  const rows = [
    ...param.map((one) => one.replace(/^(\w+)\s+-\s+/, '`$1`: ')),
    ...returns.map((one) => `**Returns**: ${one}`),
    ...throws.map((one) => `**Throws** ${one}`),
  ];
  return html(text) + (rows.length ? html(rows.map((row) => `- ${row.replace(/\n/g, '\n  ')}`).join('\n')) : '');
}

// The displayed code, and the code to run: there, a line that states a value passes it to `say`.
const examplesOf = ({ example = [] }) => example.map((code) => ({
  code, run: writeStatements(code, (expression) => `say(${JSON.stringify(expression)}, ${expression});`),
}));

const memberOf = ({ name, forms, comments }) => ({
  name,
  forms: forms.map((form) => form.replace('declare function ', '').replaceAll('Tarvik.', '')),
  summary: firstSentence(comments[0].text),
  details: comments.map(detailsOf).join(''),
  examples: comments.flatMap(examplesOf),
});

const objectOf = ({ name, comment, members }) => ({
  name,
  details: html(comment.text),
  examples: examplesOf(comment),
  members: members.map(memberOf),
});

// The objects of a plug-in follow it in the file; those before the first plug-in belong to every page.
function objectsFrom(first) {
  const next = interfaces.findIndex((one, index) => index > first && plugins.some(({ type }) => type === one.name));
  return interfaces.slice(first, next < 0 ? undefined : next).map(objectOf);
}

const plugins = host.members
  .filter(({ uses }) => !uses.includes('call'))
  .map(({ name, type, comments }) => ({
    name, type, summary: htmlLine(comments[0].text.replace(/; \*(retained|transient)[\s\S]*$/, '.')),
  }));

const everyPage = {
  name: '', summary: 'What every page finds.',
  objects: [
    objectOf({ ...host, name: 'external', members: host.members.filter(({ uses }) => uses.includes('call')) }),
    objectOf({ name: 'Globals', comment: { text: 'They exist before the first script of a page runs.' }, members: globals }),
    ...objectsFrom(0),
  ],
};
const described = plugins.map((plugin) => (
  { ...plugin, objects: objectsFrom(interfaces.findIndex((one) => one.name === plugin.type)) }));
const reference = [everyPage, ...described];
writeFileSync(process.argv[2], `Showcase.reference = ${JSON.stringify(reference)};\n`);
