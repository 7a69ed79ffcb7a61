// A plugin that tools/check_tidy loads into clang-tidy: its checks walk through the project's own declarations alone.
// Otherwise they walk through all that the standard library's, the toolkit's and the test framework's headers declare,
// which takes most of the time, and what they find there is thrown away.

#include <clang/AST/ASTConsumer.h>
#include <clang/AST/ASTContext.h>
#include <clang/Basic/SourceManager.h>
#include <clang/Frontend/FrontendPluginRegistry.h>

#include <memory>
#include <string>
#include <vector>

namespace {

class OwnDeclarations : public clang::ASTConsumer {
 public:
  bool HandleTopLevelDecl(clang::DeclGroupRef group) override {
    for (clang::Decl* declaration : group) {
      const clang::SourceManager& sources = declaration->getASTContext().getSourceManager();
      if (!sources.isInSystemHeader(sources.getExpansionLoc(declaration->getLocation()))) own_.push_back(declaration);
    }
    return true;
  }
  void HandleTranslationUnit(clang::ASTContext& context) override { context.setTraversalScope(own_); }

 private:
  std::vector<clang::Decl*> own_;
};

class Narrow : public clang::PluginASTAction {
 protected:
  std::unique_ptr<clang::ASTConsumer> CreateASTConsumer(clang::CompilerInstance&, llvm::StringRef) override {
    return std::make_unique<OwnDeclarations>();
  }
  bool ParseArgs(const clang::CompilerInstance&, const std::vector<std::string>&) override { return true; }
  ActionType getActionType() override { return AddBeforeMainAction; }
};

const clang::FrontendPluginRegistry::Add<Narrow> registered("tidy-scope", "checks walk through own declarations only");

}  // namespace
