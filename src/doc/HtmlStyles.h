#pragma once

// The style elements of the HTML pages: one dark palette, written into
// every page so that a page needs no other file.

#include <string_view>

namespace quor::doc {

// The style element of a module page, head indentation and closing line feed included.
inline constexpr std::string_view MODULE_PAGE_STYLE = R"(  <style>
    :root {
      --bg-primary: #0f172a;
      --bg-secondary: #1e293b;
      --bg-code: #0b1120;
      --text-primary: #f1f5f9;
      --text-muted: #94a3b8;
      --accent: #38bdf8;
      --accent-hover: #0ea5e9;
      --border: #334155;
      --badge-fn: #10b981;
      --badge-class: #6366f1;
      --badge-type: #f59e0b;
    }
    * { box-sizing: border-box; }
    body {
      display: flex;
      flex-direction: row;
      margin: 0;
      background: var(--bg-primary);
      color: var(--text-primary);
      font-family: system-ui, -apple-system, "Segoe UI", Roboto, sans-serif;
      line-height: 1.6;
    }
    a { color: var(--accent); text-decoration: none; }
    a:hover { color: var(--accent-hover); }
    .sidebar {
      position: sticky;
      top: 0;
      align-self: flex-start;
      width: 280px;
      min-width: 280px;
      height: 100vh;
      overflow-y: auto;
      padding: 1.5rem;
      background: var(--bg-secondary);
      border-right: 1px solid var(--border);
    }
    .sidebar h2 {
      margin: 0 0 0.75rem;
      font-size: 0.85rem;
      letter-spacing: 0.05em;
      text-transform: uppercase;
      color: var(--text-muted);
    }
    .sidebar a { display: block; padding: 0.2rem 0; font-size: 0.95rem; }
    .sidebar hr { border: none; border-top: 1px solid var(--border); margin: 1.25rem 0; }
    .content { flex: 1; max-width: 900px; padding: 2rem 3rem; }
    h1, h2, h3, h4 { color: var(--text-primary); line-height: 1.3; }
    h1 { margin-top: 0; font-size: 2rem; }
    h1 code { color: var(--accent); }
    h3 { margin: 0 0 0 0.5rem; font-size: 1.25rem; }
    h4 { margin: 1rem 0 0.5rem; font-size: 1rem; color: var(--text-muted); }
    code { font-family: "JetBrains Mono", "Fira Code", Consolas, monospace; font-size: 0.9em; }
    .doc-lead { font-size: 1.1rem; color: var(--text-muted); white-space: pre-wrap; }
    .entry-card {
      margin-bottom: 1.5rem;
      padding: 1.25rem 1.5rem;
      background: var(--bg-secondary);
      border: 1px solid var(--border);
      border-radius: 8px;
      scroll-margin-top: 1rem;
    }
    .entry-card:target { border-color: var(--accent); }
    pre {
      margin: 0.75rem 0;
      padding: 0.75rem 1rem;
      overflow-x: auto;
      background: var(--bg-code);
      border: 1px solid var(--border);
      border-radius: 6px;
    }
    pre code { color: var(--accent); }
    .desc { white-space: pre-wrap; }
    .badge {
      display: inline-block;
      padding: 0.1rem 0.5rem;
      border-radius: 999px;
      font-size: 0.75rem;
      font-weight: 600;
      color: var(--bg-primary);
      vertical-align: middle;
    }
    .badge-fn { background: var(--badge-fn); }
    .badge-class { background: var(--badge-class); color: var(--text-primary); }
    .badge-type { background: var(--badge-type); }
    table { width: 100%; margin-top: 0.75rem; border-collapse: collapse; }
    th, td { padding: 0.4rem 0.6rem; text-align: left; border-bottom: 1px solid var(--border); }
    th { color: var(--text-muted); font-weight: 600; }
    ul { padding-left: 1.25rem; }
  </style>
)";

// The style element of the index page.
inline constexpr std::string_view INDEX_PAGE_STYLE = R"(  <style>
    :root {
      --bg-primary: #0f172a;
      --bg-secondary: #1e293b;
      --text-primary: #f1f5f9;
      --text-muted: #94a3b8;
      --accent: #38bdf8;
      --accent-hover: #0ea5e9;
      --border: #334155;
    }
    body {
      max-width: 900px;
      margin: 0 auto;
      padding: 3rem 2rem;
      background: var(--bg-primary);
      color: var(--text-primary);
      font-family: system-ui, -apple-system, "Segoe UI", Roboto, sans-serif;
    }
    h1 { color: var(--accent); }
    .card {
      display: block;
      margin-bottom: 1rem;
      padding: 1.25rem 1.5rem;
      background: var(--bg-secondary);
      border: 1px solid var(--border);
      border-radius: 8px;
      color: var(--text-primary);
      text-decoration: none;
    }
    .card:hover { border-color: var(--accent-hover); }
    .card h3 { margin: 0 0 0.4rem; color: var(--accent); }
    .card p { margin: 0; color: var(--text-muted); }
  </style>
)";

}  // namespace quor::doc
