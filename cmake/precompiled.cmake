# Half of the time that most files take to compile goes into these headers. Every file still includes
# what it needs: a build with -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON shows what is missing.
function(precompile_common_headers target)
  target_precompile_headers(${target} PRIVATE
    <afxwin.h> <algorithm> <memory> <optional> <string> <string_view> <vector>)
endfunction()
