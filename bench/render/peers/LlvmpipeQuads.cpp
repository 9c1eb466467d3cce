// SPDX-License-Identifier: MIT
#include "render/peers/LlvmpipeQuads.h"

#include <cstdlib>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/View.h"

#define EGL_NO_X11
#define GL_GLEXT_PROTOTYPES
#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <GL/glcorearb.h>

#include "platform/Direct3D8.h"

namespace scenara::bench {
namespace {

constexpr const char* kVertexShader = R"(#version 330 core
layout(location = 0) in vec2 place;
layout(location = 1) in vec2 texel;
out vec2 coordinate;
void main() {
    coordinate = texel;
    gl_Position = vec4(place / vec2(160.0, 120.0) - 1.0, 0.0, 1.0);
}
)";

// Two, because a shader that never discards is drawn faster.
constexpr const char* kWholeShader = R"(#version 330 core
uniform sampler2D picture;
in vec2 coordinate;
out vec4 color;
void main() {
    color = texture(picture, coordinate);
}
)";

constexpr const char* kMaskedShader = R"(#version 330 core
uniform sampler2D picture;
in vec2 coordinate;
out vec4 color;
void main() {
    color = texture(picture, coordinate);
    if (color.a == 0.0) {
        discard;
    }
}
)";

struct Corner {
    float x;
    float y;
    float u;
    float v;
};

void Require(bool success, const std::string& what) {
    if (!success) {
        throw std::runtime_error("OpenGL: " + what);
    }
}

GLuint CompileShader(GLenum kind, const char* text) {
    const GLuint shader = glCreateShader(kind);
    glShaderSource(shader, 1, &text, nullptr);
    glCompileShader(shader);
    GLint compiled = GL_FALSE;
    glGetShaderiv(shader, GL_COMPILE_STATUS, &compiled);
    Require(compiled == GL_TRUE, "shader");
    return shader;
}

GLuint LinkProgram(const char* fragmentShader) {
    const GLuint program = glCreateProgram();
    glAttachShader(program, CompileShader(GL_VERTEX_SHADER, kVertexShader));
    glAttachShader(program, CompileShader(GL_FRAGMENT_SHADER, fragmentShader));
    glLinkProgram(program);
    GLint linked = GL_FALSE;
    glGetProgramiv(program, GL_LINK_STATUS, &linked);
    Require(linked == GL_TRUE, "program");
    return program;
}

EGLDisplay OpenDisplay() {
    // Both are read when the first display is opened.
    setenv("LIBGL_ALWAYS_SOFTWARE", "1", 1);
    setenv("LP_NUM_THREADS", "0", 1);
    const EGLDisplay display =
        eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
    Require(display != EGL_NO_DISPLAY && eglInitialize(display, nullptr, nullptr) == EGL_TRUE,
            "display");
    return display;
}

}  // namespace

// A context of its own, drawing into an image that is neither window nor pixel buffer.
class LlvmpipeQuads::Context {
public:
    Context() {
        static const EGLDisplay display = OpenDisplay();
        display_ = display;
        eglBindAPI(EGL_OPENGL_API);
        const EGLint wanted[] = {EGL_CONTEXT_MAJOR_VERSION, 3, EGL_CONTEXT_MINOR_VERSION, 3,
                                 EGL_NONE};
        context_ = eglCreateContext(display_, EGL_NO_CONFIG_KHR, EGL_NO_CONTEXT, wanted);
        Require(context_ != EGL_NO_CONTEXT, "context");
        Use();
        const auto* const name = reinterpret_cast<const char*>(glGetString(GL_RENDERER));
        Require(name != nullptr && std::string_view(name).starts_with("llvmpipe"), "llvmpipe");
        MakeTarget();
    }

    ~Context() {
        eglMakeCurrent(display_, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
        eglDestroyContext(display_, context_);
    }

    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;

    void Use() {
        if (eglGetCurrentContext() != context_) {
            Require(eglMakeCurrent(display_, EGL_NO_SURFACE, EGL_NO_SURFACE, context_) == EGL_TRUE,
                    "current context");
        }
    }

private:
    static void MakeTarget() {
        GLuint buffer = 0;
        glGenRenderbuffers(1, &buffer);
        glBindRenderbuffer(GL_RENDERBUFFER, buffer);
        glRenderbufferStorage(GL_RENDERBUFFER, GL_RGBA8, View().width, View().height);
        GLuint target = 0;
        glGenFramebuffers(1, &target);
        glBindFramebuffer(GL_FRAMEBUFFER, target);
        glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER, buffer);
        Require(glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE, "target");
        glViewport(0, 0, View().width, View().height);
        glClearColor(0, 0, 0, 1);
        glClear(GL_COLOR_BUFFER_BIT);
    }

    EGLDisplay display_ = EGL_NO_DISPLAY;
    EGLContext context_ = EGL_NO_CONTEXT;
};

LlvmpipeQuads::LlvmpipeQuads(const Scene& scene)
    : scene_(scene), context_(std::make_unique<Context>()) {
    wholeProgram_ = LinkProgram(kWholeShader);
    maskedProgram_ = LinkProgram(kMaskedShader);
    MakeTextures();
    MakeQuads();
    Require(glGetError() == GL_NO_ERROR, "preparation");
}

LlvmpipeQuads::~LlvmpipeQuads() = default;

void LlvmpipeQuads::MakeTextures() {
    textures_.resize(scene_.pictures.size());
    glGenTextures(static_cast<GLsizei>(textures_.size()), textures_.data());
    for (std::size_t i = 0; i < textures_.size(); ++i) {
        const ScenePicture& picture = scene_.pictures[i];
        glBindTexture(GL_TEXTURE_2D, textures_[i]);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
        glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, picture.width, picture.height, 0, GL_BGRA,
                     GL_UNSIGNED_INT_8_8_8_8_REV, picture.pixels.data());
    }
}

// The image's first line is the view's top, so nothing is upside down when it is read.
void LlvmpipeQuads::MakeQuads() {
    std::vector<Corner> corners;
    for (const Blit& blit : scene_.blits) {
        const ScenePicture& picture = scene_.pictures[blit.picture];
        const auto left = static_cast<float>(blit.x);
        const auto top = static_cast<float>(blit.y);
        const auto right = static_cast<float>(blit.x + picture.width);
        const auto bottom = static_cast<float>(blit.y + picture.height);
        corners.insert(
            corners.end(),
            {{left, top, 0, 0}, {right, top, 1, 0}, {left, bottom, 0, 1}, {right, bottom, 1, 1}});
    }
    GLuint layout = 0;
    glGenVertexArrays(1, &layout);
    glBindVertexArray(layout);
    GLuint buffer = 0;
    glGenBuffers(1, &buffer);
    glBindBuffer(GL_ARRAY_BUFFER, buffer);
    glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(corners.size() * sizeof(Corner)),
                 corners.data(), GL_STATIC_DRAW);
    glEnableVertexAttribArray(0);
    glVertexAttribPointer(0, 2, GL_FLOAT, GL_FALSE, sizeof(Corner), nullptr);
    glEnableVertexAttribArray(1);
    glVertexAttribPointer(1, 2, GL_FLOAT, GL_FALSE, sizeof(Corner),
                          reinterpret_cast<const void*>(offsetof(Corner, u)));
}

void LlvmpipeQuads::Draw() {
    context_->Use();
    GLint first = 0;
    for (const Blit& blit : scene_.blits) {
        glUseProgram(scene_.pictures[blit.picture].masked ? maskedProgram_ : wholeProgram_);
        glBindTexture(GL_TEXTURE_2D, textures_[blit.picture]);
        glDrawArrays(GL_TRIANGLE_STRIP, first, 4);
        first += 4;
    }
    glFinish();
}

std::vector<std::uint32_t> LlvmpipeQuads::Picture() {
    context_->Use();
    std::vector<std::uint32_t> pixels(std::size_t{View().width} * std::size_t{View().height});
    glReadPixels(0, 0, View().width, View().height, GL_BGRA, GL_UNSIGNED_INT_8_8_8_8_REV,
                 pixels.data());
    Require(glGetError() == GL_NO_ERROR, "drawing");
    return pixels;
}

}  // namespace scenara::bench
