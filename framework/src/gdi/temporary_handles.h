// The temporary objects for handles of drawing and menus: deletes the calling thread's, made since
// a moment (see TemporaryMark; 0: all of them).
#pragma once

void DeleteTemporaryGdiObjects(unsigned since);
void DeleteTemporaryDCs(unsigned since);
void DeleteTemporaryMenus(unsigned since);
void DeleteTemporaryImageLists(unsigned since);
