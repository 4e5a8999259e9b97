#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

#include <atomic>
#include <expected>
#include <functional>
#include <memory>

namespace KelvaLR {

class AudioInput;
class AudioOutput;

/// What the audio thread has to know of a session; written on the main thread.
struct RealtimeAudioGate
{
    std::atomic_bool isActive = false;    ///< a session is connected and configured
    std::atomic_bool isRecording = false; ///< microphone audio may be sent
    std::atomic_bool isSpeaking = false;  ///< the assistant is heard, so the microphone would hear it too

    [[nodiscard]] bool isOpen() const { return isActive && isRecording && !isSpeaking; }
};

/// The sound of a realtime session, both ways as signed 16-bit samples, one channel, 24,000 Hz. Main thread;
/// only the conversion of what is captured runs on the audio thread. Errors are finished sentences.
class RealtimeAudio : public QObject
{
public:
    using ChunkHandler = std::function<void(QByteArray pcm)>;
    using FailureHandler = std::function<void(QString sentence)>;

    /// The ports outlive this object.
    /// @param onChunk takes each captured piece while the gate is open, in order, on the main thread
    /// @param onFailure a device has gone in mid-session
    RealtimeAudio(AudioInput &input, AudioOutput &output, ChunkHandler onChunk, FailureHandler onFailure);
    ~RealtimeAudio() override;

    [[nodiscard]] RealtimeAudioGate &gate() { return *m_gate; }

    /// A wait for the user's permission may outlive this object.
    [[nodiscard]] AudioInput &input() { return m_input; }

    std::expected<void, QString> configurePlayback();
    std::expected<void, QString> startMicrophone();

    [[nodiscard]] bool isMicrophoneActive() const { return m_isMicrophoneActive; }

    /// Ends capture and playback, if the microphone is active.
    void tearDown();

    /// Queues samples behind what is queued; a byte that makes no whole sample is left out.
    void play(QByteArray pcm);

    /// Whether something of what was given to `play` is still heard.
    [[nodiscard]] bool isPlaying() const;

    /// Drops what is queued for playback and is ready for more.
    void restartPlayback();

private:
    AudioInput &m_input;
    AudioOutput &m_output;
    ChunkHandler m_onChunk;
    FailureHandler m_onFailure;
    std::shared_ptr<RealtimeAudioGate> m_gate = std::make_shared<RealtimeAudioGate>();
    bool m_isMicrophoneActive = false;
};

} // namespace KelvaLR
