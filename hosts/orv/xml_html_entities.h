// The named characters of HTML.
#pragma once

// The code point of an entity, or 0. Source: HTML 4.01, section 24 (without Greek letters and
// mathematical signs).
unsigned long HtmlEntity(const char* name);
